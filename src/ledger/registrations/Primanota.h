// The registration that is not a VAT document: one head (`Articoli`) and its rows (`Movimenti`).
//
// Invariant of what is stored: debits equal credits. Rows stay in memory until a confirmation takes
// the numbering lock, then writes rows and head in one transaction, and announces the number after.
// Whatever fails in the middle leaves nothing behind, and the user's rows are still here.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/records/DocumentoAperto.h"
#include "ledger/accounts/SaldoConto.h"
#include "ledger/registrations/RegistrazioneAutomatica.h"

namespace fenalto::ledger {

/// A row of `Movimenti` with the texts that its grid shows beside it.
struct RigaPrimanota {
  std::int64_t num = 0;  ///< its own while the registration is open, whatever its position
  std::int64_t posi = 0;
  std::string causale;
  std::string descrCausale;
  std::string descrizione;
  std::string cfp;
  std::string conto;
  std::string descrConto;
  Importo impoDare;
  Importo impoAvere;
  std::string cfpControp;
  std::string contoControp;
  bool diversiControp = false;
  std::string categoria;
  std::string commessa;
  std::vector<Coppia> altre;  ///< columns that the form doesn't show

  friend bool operator==(const RigaPrimanota&, const RigaPrimanota&) = default;
};

/// A model for new registrations (`zArticoliNonIvaDupl`).
struct ModelloPrimanota {
  std::int64_t articolo = 0;
  int anno = 0;
  Data dt;
  std::string descrArtDupl;
  std::string conto;
  std::string contoA;
};

/// A registration that a function proposes, to be looked at and confirmed as any other.
struct PropostaRegistrazione {
  Data dt;
  Origine origine = Origine::Manuale;
  std::vector<RigaRegistrazione> righe = {};
};

/// A document attached to a registration.
struct AllegatoPrimanota {
  std::int64_t num = 0;  ///< 0 while it waits for the confirmation of a new registration
  std::string descrizione;
  std::filesystem::path file;
};

class Primanota {
 public:
  using Stato = records::Stato;

  explicit Primanota(Ambiente& ambiente);
  ~Primanota();

  [[nodiscard]] Stato StatoCorrente() const;
  [[nodiscard]] bool Nuova() const;
  /// The record is in edit elsewhere: it can be looked at and not changed.
  [[nodiscard]] bool SolaLettura() const;
  /// Whether anything was changed since it was opened.
  [[nodiscard]] bool Modificata() const;

  // --- Head -----------------------------------------------------------------------------------

  /// New registration: date remembered, selected year, probable number, contra-entries automatic.
  void Nuovo();
  /// Opens a registration of the selected year by its number, with its warnings. False when there
  /// is none of that number that isn't a VAT registration (nothing else happens).
  bool Apri(std::int64_t numero);
  /// A registration that a stopped program left unconfirmed: open again as it was typed, after its
  /// question. False when there is none, or it can't be gone on with (told).
  bool Riprendi();
  /// Bound fields: `NumDoc`, `Dt`, `Anno`, `Duplicabile`, `DescrArtDupl`, and `ProbabileNumDoc`
  /// (text, not of the table).
  [[nodiscard]] Scheda& Testa();
  /// A field of the head was left: number set back when 0 or less, warnings of the date.
  void TestaLasciata(std::string_view campo);

  // --- Rows -----------------------------------------------------------------------------------

  [[nodiscard]] const std::vector<RigaPrimanota>& Righe() const;
  [[nodiscard]] Importo TotDare() const;
  [[nodiscard]] Importo TotAvere() const;
  /// TotDare - TotAvere
  [[nodiscard]] Importo Sbilancio() const;

  /// Opens a new row; refused (false) while a row is open or no record is.
  bool PNuovaRiga();
  /// Opens the row of that counter; false while a row is open or it isn't there.
  bool ApriRiga(std::int64_t num);
  [[nodiscard]] bool RigaNuova() const;
  /// Bound fields: `Posi`, `Causale`, `Descrizione`, `CFP`, `Conto`, `ImpoDare`, `ImpoAvere`,
  /// `CFPControp`, `ContoControp`, `DiversiControp`, `Categoria`, `Commessa`.
  [[nodiscard]] Scheda& Riga();
  /// A field of the row was changed and left: applies what follows (account emptied when its class
  /// changed, the other amount zeroed, the balancing amount and description of a causal that
  /// repeats).
  void RigaLasciata(std::string_view campo);
  /// Class of the account that the row's causal was last used with, here or in the newest
  /// movements; empty when it wasn't. A proposal for a code that several classes have.
  [[nodiscard]] std::string ClasseDiCausale();
  /// Saves the open row after its checks. False when one stopped it; `campo` receives the control
  /// to go to.
  bool ConfermaRiga(std::string* campo = nullptr);
  /// Deletes the open row after a question.
  bool EliminaRiga();
  /// Gives the open row up.
  void AnnullaRiga();
  /// Description of the row's account, causal, contra-entry as typed now; nothing when unknown.
  [[nodiscard]] std::optional<std::string> DescrizioneCodice(std::string_view campo) const;

  [[nodiscard]] bool ContropAutomatiche() const;
  /// Ticking recomputes the contra-entries at once.
  void ContropAutomatiche(bool attive);

  /// Balance of the row's account in the selected year; nothing when no account is typed.
  std::optional<Saldo> VisSaldo();

  // --- Models ---------------------------------------------------------------------------------

  [[nodiscard]] std::vector<ModelloPrimanota> Modelli();
  /// Copies a model's rows into the new registration; its contra-entries stay as they are.
  void Duplica(std::int64_t articolo, int anno);
  /// A new registration with those rows and contra-entries; once confirmed it bears their origin.
  void Proponi(const PropostaRegistrazione& proposta);

  // --- Attachments ------------------------------------------------------------------------------

  [[nodiscard]] std::vector<AllegatoPrimanota> Allegati();
  /// Keeps a copy of a file with the registration.
  Esito<bool> AggiungiAllegato(const std::filesystem::path& file);
  Esito<bool> TogliAllegato(std::size_t indice);

  // --- Confirmation -----------------------------------------------------------------------------

  /// All checks in their order, then number, write, announcement. True when it was written; then no
  /// record is open and NumeroConfermato() is its number. When a check stopped it, `campo` receives
  /// the control to go to.
  bool Conferma(std::string* campo = nullptr);
  [[nodiscard]] std::int64_t NumeroConfermato() const;
  /// Deletes the open registration after its question.
  bool Elimina();
  /// Gives the open record up without a question.
  void Abbandona();

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::ledger
