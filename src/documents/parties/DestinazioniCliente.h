// Alternative goods destinations of the customer that is open: the rows of its form, and what may
// be done with them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/archives/DescrizioneArchivio.h"
#include "core/records/Righe.h"

namespace fenalto::documents {

/// Texts of a destination, by the columns of its table.
inline constexpr std::array kCampiDestinazione = {
    "RagSoc1Dest_R",  "ragsoc2Dest_R", "indirizzodest_R", "capdest_r",
    "localitadest_r", "provdest_r",    "CODDEST"};
/// Fields of the customer that hold its one predefined destination instead.
inline constexpr std::array kCampiPredefinita = {"RagSoc1Dest", "ragsoc2Dest",  "indirizzodest",
                                                 "capdest",     "localitadest", "provdest",
                                                 "CodDest"};

/// A row of `Destinazioni_R`; `posi` is what documents keep of it.
struct DestinazioneMerce {
  std::int64_t posi = 0;
  std::array<std::string, kCampiDestinazione.size()> testi = {};
};

/// Rows are held in memory until the customer is confirmed; then they replace those of the table,
/// in the customer's transaction.
class DestinazioniCliente {
 public:
  DestinazioniCliente();

  /// Takes the destinations of a stored customer; none for the empty code.
  void Leggi(Ambiente& ambiente, const std::string& cod);
  /// The destinations are those of a copied customer: to be written with the new one.
  void Copiate();
  [[nodiscard]] const std::vector<DestinazioneMerce>& Righe() const { return righe_.Tutte(); }
  /// A row was added, changed or deleted.
  [[nodiscard]] bool Modificate() const { return righe_.Modificate(); }

  // --- The row in edit ---------------------------------------------------------------------------

  [[nodiscard]] bool InRiga() const { return righe_.InRiga(); }
  [[nodiscard]] bool RigaNuova() const { return righe_.RigaNuova(); }
  /// `Posi` and the texts of the row in edit.
  [[nodiscard]] Scheda& Riga() { return righe_.Riga(); }
  /// Opens a new row after the last; false when a row is open already, or the customer has a
  /// predefined destination (told).
  bool Nuova(archives::ContestoArchivio& cliente);
  /// Opens the row of that position; false when there is none.
  bool Apri(std::int64_t posi);
  /// Keeps the row in edit; one without any text is refused (told).
  bool Conferma(Dialoghi& dialogo);
  /// Asks and deletes the row in edit; gives a new one up.
  bool Elimina(Dialoghi& dialogo);
  void Annulla() { righe_.Annulla(); }

  // --- With the customer -------------------------------------------------------------------------

  /// Replaces the rows of the table, in the transaction of the customer.
  void Scrivi(Ambiente& ambiente, const std::string& codicePrima, const std::string& codice) const;
  static void EliminaTutte(Ambiente& ambiente, const std::string& codice);

 private:
  records::Righe<DestinazioneMerce> righe_;
};

/// Whether the customer on the screen has a predefined destination.
bool HaPredefinita(const Scheda& cliente);

}  // namespace fenalto::documents
