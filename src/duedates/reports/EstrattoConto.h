// The statement of account: a letter to each customer or supplier with what is open.
#pragma once

#include "core/reports/SceltaRifiutata.h"
#include "core/reports/Uscita.h"
#include "duedates/reports/LetturaScadenze.h"

namespace fenalto::duedates {

struct SceltaEstrattoConto {
  /// With `anchePagate`, what was paid from `pagateDal` on stands below what is open.
  SceltaScadenze scadenze;
  Data alla;  ///< day of the statement: due before it is overdue
  bool stGrafico = false;
  double xTar = 0;
};

class EstrattoConto : public reports::SceltaRifiutata {
 public:
  EstrattoConto(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), uscite_(uscite) {}

  /// To customers, as of today, with all that is open.
  [[nodiscard]] SceltaEstrattoConto Proposta();
  /// A sheet or more for each party with something open. False when the choice is wrong, nobody has
  /// anything open (both told), or it was cancelled.
  bool Stampa(const SceltaEstrattoConto& scelta);

 private:
  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
};

}  // namespace fenalto::duedates
