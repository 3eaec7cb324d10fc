// What a product cost, from the loads of the session's year: types of document with NoCosti aside.
#pragma once

#include <cstdint>
#include <string>

#include "core/session/Ambiente.h"
#include "warehouse/stock/SerieCodici.h"

namespace fenalto::warehouse {

struct Costi {
  Data ultimoCarico;    ///< null without loads
  Importo ultimo;       ///< net price of the last load that has one
  Importo medio;        ///< weighted mean of the year's loads, opening stock included
  std::string tipoDoc;  ///< of the last load, whatever its price
  std::int64_t numDoc = 0;
  int anno = 0;
  Importo valoreCarichi;  ///< of the loads other than opening stock
};

// Values are added up exactly and rounded once, to the nearest, ties to even: a mean doesn't depend
// on how many loads it comes from.

/// `finoAl`: last day of loads, null for all.
Costi CalcoloCosti(Ambiente& ambiente, const std::string& prodotto, Data finoAl = {});

/// The same for many products, asked for by ascending code: one result set for all of them.
class CostiInSerie {
 public:
  explicit CostiInSerie(Ambiente& ambiente, Data finoAl = {});
  Costi Di(const std::string& prodotto);

 private:
  SerieCodici carichi_;
};

/// Cost of one unit from the first level of its bill: of each component mean or last cost, else
/// `CostoDigitato`, times its quantity. Zero without a bill.
Importo CostoDaDistinta(Ambiente& ambiente, const std::string& prodotto, bool medio);

}  // namespace fenalto::warehouse
