// The automatic change of sale prices by a percentage of the prices themselves, of the last cost or
// of the typed cost.
#pragma once

#include <string>

#include "core/reports/SceltaRifiutata.h"
#include "warehouse/stock/SceltaProdotti.h"

namespace fenalto::warehouse {

enum class BasePrezzo { Nessuna, Attuale, CostoUltimo, CostoDigitato };

struct SceltaVariazione {
  SceltaProdotti prodotti;
  Importo percAumPr;
  BasePrezzo base = BasePrezzo::Nessuna;
  bool prezzo1 = false;
  bool prezzo2 = false;
  bool prezzo3 = false;
  bool prezzoIva = false;
};

class VariazionePrezzi : public reports::SceltaRifiutata {
 public:
  explicit VariazionePrezzi(Ambiente& ambiente) : ambiente_(ambiente) {}

  /// Checks, asks, and changes the prices in one transaction; true when it was done. A product
  /// without the cost that its price is taken from keeps its prices, and is counted.
  bool Esegui(const SceltaVariazione& scelta);

 private:
  [[nodiscard]] static std::optional<Rifiuto> Difetto(const SceltaVariazione& scelta);

  Ambiente& ambiente_;
};

}  // namespace fenalto::warehouse
