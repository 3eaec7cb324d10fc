// Stock and costs of a product as the panels beside it show them, and its course over the months.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::warehouse {

/// Lines of fixed width.
struct PannelloEsistenza {
  std::vector<std::string> list2;  ///< by warehouse, and in total
  std::vector<std::string> list3;  ///< orders, availability, costs, last load
};

PannelloEsistenza LeggiPannelloEsistenza(Ambiente& ambiente, const std::string& prodotto);

/// Why the stock of the session's year begins from nothing although the year before moved stock:
/// its opening stock wasn't carried over. Empty when it was, or there is nothing to carry.
std::string AvvisoTrasporto(Ambiente& ambiente);

struct PuntoEsistenza {
  Data fineMese;
  Importo esistenza;  ///< of the month's year, up to that day
};

/// The ends of twelve months, the last one that of today's month when today lies in the session's
/// year, else of its December. Read in one pass over the product's rows of the two years.
std::vector<PuntoEsistenza> AndamentoEsistenza(Ambiente& ambiente, const std::string& prodotto,
                                               const std::string& mag = "");

}  // namespace fenalto::warehouse
