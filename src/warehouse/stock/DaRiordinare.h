// What is to be ordered again: products whose available quantity is below their `Scorta`, each with
// the supplier that comes first on it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "warehouse/stock/SceltaProdotti.h"

namespace fenalto::warehouse {

/// A product to order, and how much: up to its `Scorta`, at least `QMinRiordino`.
struct VoceRiordino {
  std::string fornitore;  ///< empty when the product has none
  std::string nomeFornitore;
  std::string prodotto;
  std::string descrizione;
  std::string codPrFor;     ///< the supplier's own code
  std::string descrOrdine;  ///< what an order says in place of the description, empty for that
  std::string um;
  Importo disponibile;
  Importo scorta;
  Importo qMinRiordino;
  Importo daOrdinare;
  Importo costo;  ///< the supplier's, net
};

/// By supplier and product; those without a supplier come first. Products out of use aren't
/// ordered. Nothing when it was stopped.
std::optional<std::vector<VoceRiordino>> DaRiordinare(Ambiente& ambiente,
                                                      const SceltaProdotti& scelta);

}  // namespace fenalto::warehouse
