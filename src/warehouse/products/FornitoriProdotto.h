// Suppliers of the product that is open: the rows of its form, and what may be done with them.
#pragma once

#include <string>
#include <vector>

#include "core/records/Righe.h"
#include "core/session/Ambiente.h"
#include "core/session/Rifiuto.h"
#include "warehouse/products/Prodotto.h"

namespace fenalto::warehouse {

/// Rows are held in memory until the product is confirmed; then they replace those of the table, in
/// the product's transaction. Rows that nobody touched aren't written: documents put what a load
/// cost into them meanwhile.
class FornitoriProdotto {
 public:
  FornitoriProdotto();

  /// Takes the suppliers of a stored product; none for the empty code.
  void Leggi(Ambiente& ambiente, const std::string& cod);
  /// The suppliers are those of a copied product: to be written with the new one.
  void Copiati();
  [[nodiscard]] const std::vector<FornitoreProdotto>& Righe() const { return righe_.Tutte(); }
  /// A row was added, changed or deleted.
  [[nodiscard]] bool Modificati() const { return righe_.Modificate(); }

  // --- The row in edit ---------------------------------------------------------------------------

  [[nodiscard]] bool InRiga() const { return righe_.InRiga(); }
  [[nodiscard]] bool RigaNuova() const { return righe_.RigaNuova(); }
  /// Fields of the row in edit; those that the product has too are written otherwise (`Prezzox`,
  /// `xDescrizione`, `xSc1`).
  [[nodiscard]] Scheda& Riga() { return righe_.Riga(); }
  /// Opens a new row after the last; false when a row is open already.
  bool Nuova();
  bool Apri(std::int64_t posi);
  /// Keeps the row in edit; false when it was refused (told), with the field to go to.
  bool Conferma(Ambiente& ambiente, std::string* campo);
  /// Asks and deletes the row in edit; gives a new one up.
  bool Elimina(Dialoghi& dialogo);
  void Annulla() { righe_.Annulla(); }
  /// Cost of the row in edit, net of its discounts.
  [[nodiscard]] Importo Costo() const;

  // --- With the product --------------------------------------------------------------------------

  /// Whether the table holds other rows than those that were read, so that writing would lose them.
  [[nodiscard]] bool CambiatiAltrove(Ambiente& ambiente, const std::string& cod) const;
  /// Replaces the rows of the table where there is something to write, in the product's
  /// transaction.
  void Scrivi(Ambiente& ambiente, const std::string& codicePrima, const std::string& codice) const;
  static void EliminaTutti(Ambiente& ambiente, const std::string& codice);

 private:
  [[nodiscard]] std::optional<Rifiuto> Difetto(Ambiente& ambiente,
                                               const FornitoreProdotto& riga) const;

  records::Righe<FornitoreProdotto> righe_;
  std::vector<FornitoreProdotto> letti_;  ///< as the table had them
};

}  // namespace fenalto::warehouse
