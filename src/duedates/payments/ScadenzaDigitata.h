// A due date typed with the registration that it comes with: what deposits and unpaid receipts
// have in common. Checks, then both written in one transaction, then told.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"
#include "duedates/payments/ImpostazioniPagamento.h"
#include "duedates/payments/ScadenzaConRegistrazione.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::duedates {

class ScadenzaDigitata {
 public:
  virtual ~ScadenzaDigitata() = default;
  ScadenzaDigitata(const ScadenzaDigitata&) = delete;
  ScadenzaDigitata& operator=(const ScadenzaDigitata&) = delete;

  /// Class ("C" or "F") and code; another class has settings of its own.
  void ScegliParte(const std::string& cfp, const std::string& conto);
  [[nodiscard]] const std::string& Cfp() const { return cfp_; }
  [[nodiscard]] const std::string& Conto() const { return conto_; }
  [[nodiscard]] Scheda& Impostazioni() { return impostazioni_.Record(); }
  /// A setting was left: kept for the next time.
  void ImpostazioneLasciata() { impostazioni_.Scrivi(ambiente_, cfp_); }

  /// The columns of the due date, and of the registration `DtReg`, `DescrizioneContabile`.
  [[nodiscard]] Scheda& Dati() { return dati_; }
  /// `DescrizioneContabile` follows `Descrizione` until it is typed.
  void DatoLasciato(const std::string& campo);
  [[nodiscard]] bool Modificata() const { return dati_.Modificata(); }

  /// Clears what was typed and proposes a new due date; false without a party (told).
  bool Nuovo();
  /// Checks, writes, tells. False, and nothing is lost, when it was stopped (told): `campo` names
  /// the field to go to.
  bool Conferma(std::string* campo = nullptr);
  /// Gives up what was typed.
  void Abbandona();
  /// The due date written last.
  [[nodiscard]] std::int64_t NumeroScritto() const { return numeroScritto_; }

 protected:
  ScadenzaDigitata(Ambiente& ambiente, FinestraPagamento finestra);

  struct Intoppo {
    std::string testo;
    std::string campo;
  };
  /// What a new due date is proposed.
  virtual void Proponi() = 0;
  /// Why the amount can't be; nothing when it can.
  [[nodiscard]] virtual std::optional<Intoppo> RifiutoImporto() const { return std::nullopt; }
  /// Asks what is rarely meant: true when the user gives up.
  [[nodiscard]] virtual bool Rinuncia() { return false; }
  /// Completes what is written: name of the thing, side of the party, columns of its own.
  virtual void Completa(ScadenzaConRegistrazione& cosa) const = 0;
  /// "dell'anticipo": what couldn't be registered.
  [[nodiscard]] virtual std::string Nome() const = 0;
  /// What is told of a success, before the registration's number.
  [[nodiscard]] virtual std::string Riuscita() const = 0;

  [[nodiscard]] bool ConRegistrazione() const { return impostazioni_.Valori().conRegistrazione; }
  [[nodiscard]] Importo ImportoE() const { return dati_.Leggi("ImportoE").Importo(); }

  Ambiente& ambiente_;
  Scheda dati_;
  /// The row that is changed, as it was when it was opened; nothing for a new one.
  std::optional<Scadenza> vista_;
  /// The bank that came with the row taken over: it isn't looked up again.
  std::string bancaRipresa_;

 private:
  [[nodiscard]] std::optional<Intoppo> Rifiuto(const ScadenzaConRegistrazione& cosa) const;
  [[nodiscard]] ScadenzaConRegistrazione Prepara() const;
  bool Avviso(const Intoppo& intoppo, std::string* campo) const;

  std::string cfp_ = "C";
  std::string conto_;
  SchedaImpostazioni impostazioni_;
  std::string seguita_;  ///< the description that the accounting one follows
  std::int64_t numeroScritto_ = 0;
};

}  // namespace fenalto::duedates
