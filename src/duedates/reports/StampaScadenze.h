// The due dates of customers or suppliers, by party or by date: printed, or as a sheet.
#pragma once

#include "core/reports/Foglio.h"
#include "core/reports/SceltaRifiutata.h"
#include "core/reports/Uscita.h"
#include "duedates/reports/LetturaScadenze.h"

namespace fenalto::duedates {

struct SceltaStampaScadenze {
  SceltaScadenze scadenze;
  OrdineScadenze ordine = OrdineScadenze::PerConto;
  bool totaliMese = false;  ///< a total at the end of each month (of each party's, by party)
  bool stGrafico = false;
  double xTar = 0;
};

class StampaScadenze : public reports::SceltaRifiutata {
 public:
  StampaScadenze(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), uscite_(uscite) {}

  /// Prints; false when the choice is wrong, nothing was found (both told), or it was cancelled.
  bool Stampa(const SceltaStampaScadenze& scelta);
  /// The same rows and totals; without columns when there is nothing to show (told) or it was
  /// cancelled.
  reports::Foglio FoglioScadenze(const SceltaStampaScadenze& scelta);

 private:
  /// The number of due dates to print, 0 when there are none or the choice is wrong.
  std::int64_t Pronte(const SceltaStampaScadenze& scelta);

  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
};

}  // namespace fenalto::duedates
