// Payments typed from due dates: which are chosen, what is paid of each, and the confirmation that
// writes them with their registration. What the window of several parties and that of one share.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/records/DocumentoAperto.h"
#include "core/records/Righe.h"
#include "duedates/payments/ImpostazioniPagamento.h"
#include "duedates/payments/RegistraPagamento.h"
#include "duedates/schedules/RicercaScadenze.h"

namespace fenalto::duedates {

/// A row of the payment as its grid shows it.
struct RigaScelta {
  std::int64_t num = 0;
  std::int64_t posi = 0;
  Scadenza vista;
  std::string nome;  ///< of the party
  Importo importo;   ///< to settle
  Importo importoPagato;
  Importo arrotondamento;
  bool saldata = true;
};

/// Each row keeps its due date as it was when the user chose it: the confirmation compares it with
/// what stands there then.
class PagamentiScadenzario {
 public:
  enum class Modo { PiuParti, SingolaParte };
  using Stato = records::Stato;

  PagamentiScadenzario(Ambiente& ambiente, Modo modo);
  PagamentiScadenzario(const PagamentiScadenzario&) = delete;
  PagamentiScadenzario& operator=(const PagamentiScadenzario&) = delete;

  [[nodiscard]] Stato StatoCorrente() const {
    if (!aperto_) return Stato::Inattiva;
    return righe_.InRiga() ? Stato::RigaAperta : Stato::Aperta;
  }
  /// The field that the last refusal was about, empty for none.
  [[nodiscard]] const std::string& CampoRifiutato() const { return campoRifiutato_; }
  /// Something was typed into the open row.
  [[nodiscard]] bool Digitando() const { return righe_.Digitando(); }
  /// There are rows that leaving would lose.
  [[nodiscard]] bool Modificata() const;

  // --- Party, settings, head -----------------------------------------------------------------

  /// Class ("C" or "F") and code, which several parties take as a filter of the search. Another
  /// class has settings of its own. While a payment is open the class stays, and so does the one
  /// party: false.
  bool ScegliParte(const std::string& cfp, const std::string& conto);
  [[nodiscard]] const std::string& Cfp() const { return cfp_; }
  /// Causal, accounts and whether the registration is written, by the names of their settings.
  [[nodiscard]] Scheda& Impostazioni() { return impostazioni_.Record(); }
  /// A setting was left: kept for the next time.
  void ImpostazioneLasciata();
  /// `Dt`, `Descrizione`, `DescrizioneParte`.
  [[nodiscard]] Scheda& Testa() { return testa_; }

  // --- Payment -------------------------------------------------------------------------------

  /// Starts a payment; false when something is missing (told).
  bool Nuovo();
  /// Open due dates of the class, and of the party when there is one.
  [[nodiscard]] RicercaScadenze Ricerca(const std::string& nFat, Data dtFat) const;
  /// Whether the due date has a row.
  [[nodiscard]] bool Scelta(std::int64_t numero) const;
  /// Adds a due date, to be settled as a whole; `veloce` leaves its row closed. The row that was
  /// open is confirmed first. False when it can't be taken (told).
  bool Scegli(std::int64_t numero, bool veloce);
  [[nodiscard]] const std::vector<RigaScelta>& Righe() const { return righe_.Tutte(); }
  [[nodiscard]] Importo TotPagato() const;
  [[nodiscard]] Importo TotArrotondamento() const;
  /// Everything is checked and written, and told; false, and nothing is lost, when it isn't.
  bool Conferma();
  /// Of the last registration; 0 when only due dates were written.
  [[nodiscard]] std::int64_t NumeroConfermato() const { return numeroConfermato_; }
  /// Gives the payment up.
  void Abbandona();

  // --- The open row --------------------------------------------------------------------------

  bool ApriRiga(std::int64_t num);
  [[nodiscard]] Scheda& Riga() { return righe_.Riga(); }
  /// The due date of the open row, nothing when none is open.
  [[nodiscard]] const RigaScelta* RigaInCorso() const { return righe_.Aperta(); }
  /// What the open row leaves unsettled goes to the rounding.
  void ArrotondaDifferenza();
  bool ConfermaRiga();
  bool EliminaRiga();
  /// Gives the open row up: as it was, or taken off when it has just been chosen.
  void AnnullaRiga();

 private:
  [[nodiscard]] FinestraPagamento Finestra() const;
  [[nodiscard]] std::string RifiutoNuovo() const;
  [[nodiscard]] std::string RifiutoScelta(std::int64_t numero) const;
  [[nodiscard]] Pagamento ComePagamento() const;
  /// Field of the head or of the settings where something is missing; empty for none.
  [[nodiscard]] std::string CampoMancante() const;
  [[nodiscard]] bool Ammette(const RigaPagamento& riga, const std::string& campo);
  bool Avviso(const std::string& testo, std::string campo = {});

  Ambiente& ambiente_;
  Modo modo_;
  bool aperto_ = false;
  std::string cfp_ = "C";
  std::string conto_;
  SchedaImpostazioni impostazioni_;
  Scheda testa_;
  records::Righe<RigaScelta> righe_;
  bool appenaScelta_ = false;  ///< the open row was put there by the choice that opened it
  std::int64_t numeroConfermato_ = 0;
  std::string campoRifiutato_;
};

}  // namespace fenalto::duedates
