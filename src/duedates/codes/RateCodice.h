// Rates of the payment code that is open: the rows of its form, and what may be done with them.
#pragma once

#include <string>
#include <vector>

#include "core/archives/DescrizioneArchivio.h"
#include "core/records/Righe.h"
#include "duedates/codes/Rate.h"

namespace fenalto::duedates {

/// Rows are held in memory until the code is confirmed; then they replace those of the table, in
/// the code's transaction.
class RateCodice {
 public:
  explicit RateCodice(Ambiente& ambiente);

  /// Takes the rates of a stored code; none for the empty one.
  void Leggi(const std::string& cod);
  /// The rates are those of a copied code: to be written with the new one.
  void Copiate();
  [[nodiscard]] const std::vector<RataPagamento>& Righe() const { return righe_.Tutte(); }
  /// A row was added, changed or deleted.
  [[nodiscard]] bool Modificate() const { return righe_.Modificate(); }

  // --- The row in edit
  // -----------------------------------------------------------------------------

  [[nodiscard]] bool InRiga() const { return righe_.InRiga(); }
  [[nodiscard]] bool RigaNuova() const { return righe_.RigaNuova(); }
  /// Fields of the row in edit, by the names of the table's columns.
  [[nodiscard]] Scheda& Riga() { return righe_.Riga(); }
  /// Opens a new row with the number after the last, what is missing to 100 per cent, a month after
  /// the last, and the rest as the last; false when a row is open already.
  bool NuovaRiga();
  /// Opens the row of that number; false when there is none.
  bool ApriRiga(const std::string& rata);
  /// A field of the row was left with a new value: of the three ways of fixing a date only the last
  /// one chosen stays.
  void Lasciato(const std::string& campo);
  /// Checks the row and keeps it; otherwise tells why, and `rifiuto` names the field to go to.
  bool ConfermaRiga(Rifiuto* rifiuto = nullptr);
  /// Asks and deletes the row in edit; gives a new one up.
  bool EliminaRiga();
  void AnnullaRiga() { righe_.Annulla(); }

  // --- With the code
  // ------------------------------------------------------------------------------

  /// The code as it stands on the screen, with its rates.
  [[nodiscard]] CodicePagamento Codice(const Scheda& scheda) const;
  [[nodiscard]] Importo SommaPercentuali() const;
  /// Replaces the rows of the table, in the transaction of the code.
  void Scrivi(const std::string& codicePrima, const std::string& codice);
  void Elimina(const std::string& codice);

 private:
  [[nodiscard]] bool Rifiuta(const std::string& messaggio, const char* campo, Rifiuto* rifiuto);
  [[nodiscard]] bool Esiste(const std::string& rata) const;

  Ambiente& ambiente_;
  records::Righe<RataPagamento> righe_;
};

}  // namespace fenalto::duedates
