// Presentation of bank receipts: due dates of customers chosen for one bank become a batch, which
// is printed, written to the bank's file, marked on the due dates and registered.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/reports/Uscita.h"
#include "core/session/Ambiente.h"
#include "core/session/Rifiuto.h"
#include "duedates/riba/FileRiba.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::duedates {

/// A batch takes no more receipts.
inline constexpr std::size_t kMassimoRicevute = 99;

/// A due date that can be presented.
struct RigaRiba {
  std::int64_t numero = 0;
  std::string cliente;
  std::string ragSoc1;
  Data dataScad;
  Importo importo;
  std::string descrizione;  ///< its first 30 characters
  std::string abi;
  std::string cab;
  std::string nFat;
  Data dtFat;
  std::string pagamento;
  bool operator==(const RigaRiba&) const = default;
};

/// The bank of presentation as it stood when it was chosen.
struct BancaPresentazione {
  std::string cod;
  std::string nome;
  std::string agenzia;
  BancaRiba conto;
  std::int64_t nUltDistinta = 0;
  std::string iban = {};  ///< as far as it is known
  bool operator==(const BancaPresentazione&) const = default;
};
std::optional<BancaPresentazione> LeggiBanca(Ambiente& ambiente, const std::string& cod);

/// What the window keeps in the company's settings.
struct ImpostazioniRiba {
  std::string directory;       ///< `DirectoryRiba`
  std::string causale;         ///< `CausaleRiba`
  std::string contropartita;   ///< `ContropartitaRiba`
  bool registrazione = false;  ///< `RegistrazioneContabileRiba`
  bool operator==(const ImpostazioniRiba&) const = default;
};

/// How the batch is printed where the output takes more than text.
struct FormaDistinta {
  bool grafico = false;
  double xTar = 0;         ///< millimetres to the right
  bool tracciato = false;  ///< with the lines of the bank's file, which the text form always has
};

struct DatiDistinta;
class StampaDistinta;

class Riba {
 public:
  /// Reads the settings and the due dates; the batch has today's date.
  explicit Riba(Ambiente& ambiente);

  // --- Due dates
  /// Reads them again. What was chosen and can't be presented any more leaves the selection, told
  /// by name.
  void Rileggi();
  /// In order of invoice.
  [[nodiscard]] const std::vector<RigaRiba>& Righe() const { return righe_; }
  [[nodiscard]] bool Scelta(std::int64_t numero) const { return scelte_.contains(numero); }
  /// Takes the due date into the selection, or out of it. False when nothing changed, and told why:
  /// the selection is full, the due date is gone or paid.
  bool Cambia(std::int64_t numero);
  /// Takes those that aren't chosen yet, as long as there is room.
  void Scegli(std::span<const std::int64_t> numeri);
  void ScegliNessuna() { scelte_.clear(); }
  [[nodiscard]] std::size_t QuanteScelte() const { return scelte_.size(); }
  [[nodiscard]] Importo Totale() const;

  // --- Batch
  /// False, and no bank, when there is none of that code.
  bool ImpostaBanca(const std::string& cod);
  [[nodiscard]] const std::optional<BancaPresentazione>& Banca() const { return banca_; }
  /// The bank's next number; 0 without a bank.
  [[nodiscard]] std::int64_t Numero() const;
  void ImpostaData(Data data) { data_ = data; }
  [[nodiscard]] Data DataDistinta() const { return data_; }
  /// "DISTINTA 12 DEL 24/02/2026"; empty without a bank.
  [[nodiscard]] std::string Descrizione() const;
  /// Path of the file: folder, number, ".rib"; empty without a bank.
  [[nodiscard]] std::string NomeFile() const;
  /// Another name for this batch, in the folder unless it names one, and with ".rib" unless it has
  /// an ending; empty for the usual one.
  void ImpostaNomeFile(const std::string& nome);
  /// The name that a file which is there already will be kept under; empty when there is none.
  [[nodiscard]] std::string FileConservato() const;

  // --- Settings
  [[nodiscard]] const ImpostazioniRiba& Impostazioni() const { return impostazioni_; }
  /// Writes what differs.
  void Imposta(const ImpostazioniRiba& impostazioni);
  /// Warns of a causal that belongs to VAT registrations.
  void AvvisaCausale();
  /// What the file carries after each amount (`RibaSegno`).
  [[nodiscard]] RibaSegno Segno() const;
  /// The same for the user.
  [[nodiscard]] std::string TestoSegno() const;

  void ImpostaForma(const FormaDistinta& forma) { forma_ = forma; }
  /// Checks, prints the batch, asks, and writes file, due dates, bank and registration: all or
  /// nothing. After success the selection is empty and the bank has its next number.
  bool Conferma(reports::FabbricaUscite& uscite);
  /// The field that the last refusal was about, empty for none.
  [[nodiscard]] const std::string& CampoRifiutato() const { return campoRifiutato_; }
  /// What the last confirmation wrote, in a line; empty before.
  [[nodiscard]] const std::string& Scritto() const { return scritto_; }

 private:
  /// The bank as it is now; a typed name of the file stays while the number does.
  void RileggiBanca();
  enum class Presa { Presa, Piena, Negata };
  Presa Prendi(std::int64_t numero);
  RigaRiba* Trova(std::int64_t numero);
  [[nodiscard]] std::vector<Scadenza> Ordinate() const;
  [[nodiscard]] bool DatiCompleti();
  [[nodiscard]] std::optional<Rifiuto> CodiceIgnoto() const;
  bool DatiContabili();
  DatiDistinta Prepara();
  bool Chiede(const DatiDistinta& dati);
  bool Pronta(DatiDistinta& dati, StampaDistinta& stampa);
  std::string Scrivi(const DatiDistinta& dati, std::int64_t& numDoc);
  void Racconta(const DatiDistinta& dati, StampaDistinta& stampa, std::int64_t numDoc);
  std::int64_t Registra(const DatiDistinta& dati);
  bool Avviso(const std::string& testo, std::string campo = {}) const;

  Ambiente& ambiente_;
  std::vector<RigaRiba> righe_;
  std::map<std::int64_t, Scadenza> scelte_;  ///< by number, as they were when chosen
  std::optional<BancaPresentazione> banca_;
  Data data_;
  std::string nomeFile_;  ///< typed; empty for the usual one
  ImpostazioniRiba impostazioni_;
  FormaDistinta forma_;
  std::string scritto_;
  mutable std::string campoRifiutato_;
};

}  // namespace fenalto::duedates
