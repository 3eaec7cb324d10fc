// The warehouse report: stock, costs, values and prices of the products chosen, printed or as a
// sheet.
#pragma once

#include "core/reports/Foglio.h"
#include "core/reports/SceltaRifiutata.h"
#include "core/reports/Uscita.h"
#include "warehouse/stock/SituazioneMagazzino.h"

namespace fenalto::warehouse {

class StampaMagazzino : public reports::SceltaRifiutata {
 public:
  StampaMagazzino(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), uscite_(uscite) {}

  /// Prints; false when the choice is wrong, nothing was found (both told), or it was cancelled.
  bool Stampa(const SceltaMagazzino& scelta);
  /// The same rows and totals; without columns when there is nothing to show (told) or it was
  /// cancelled.
  reports::Foglio Foglio(const SceltaMagazzino& scelta);

 private:
  std::int64_t Pronti(const SceltaMagazzino& scelta);

  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
};

}  // namespace fenalto::warehouse
