// The legal journal: the registrations of a period in date order, as a test or in definitive.
#pragma once

#include "core/reports/SceltaRifiutata.h"
#include "core/reports/Uscita.h"
#include "core/session/Ambiente.h"

namespace fenalto::ledger {

struct SceltaGiornale {
  Data daDt;
  Data aaDt;
  bool perArticolo = true;  ///< order date + article; otherwise date + kind of movement
  bool intesto = true;      ///< heads and numbers the pages
  int daPag = 1;
  std::int64_t daArticolo = 1;
  bool stampaNArticolo = true;
  bool stampaCompatta = false;
  bool stGrafico = false;
  double xTar = 0;
};

class Giornale : public reports::SceltaRifiutata {
 public:
  Giornale(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), uscite_(uscite) {}

  /// From the day after the last printed date to the year's last registration; the order as kept in
  /// the settings.
  [[nodiscard]] SceltaGiornale Proposta();
  /// Prints, with the warnings before and the question of the definitive print after. False when it
  /// was cancelled or stopped.
  bool Stampa(const SceltaGiornale& scelta);

 private:
  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
};

}  // namespace fenalto::ledger
