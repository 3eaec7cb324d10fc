// The list of customers or suppliers, short or with all that is known of each: printed, or as a
// sheet.
#pragma once

#include "core/reports/Foglio.h"
#include "core/reports/SceltaRifiutata.h"
#include "core/reports/Uscita.h"
#include "documents/parties/LetturaParti.h"

namespace fenalto::documents {

struct SceltaElencoParti {
  SceltaParti parti;
  bool stGrafico = false;
  double xTar = 0;
};

class ElencoParti : public reports::SceltaRifiutata {
 public:
  ElencoParti(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), uscite_(uscite) {}

  /// Prints; false when the choice is wrong, nobody was found (both told), or it was cancelled.
  bool Stampa(const SceltaElencoParti& scelta);
  /// The same parties, a row each, and the totals; without columns when there is nobody to show
  /// (told) or it was cancelled.
  reports::Foglio FoglioParti(const SceltaElencoParti& scelta);

 private:
  /// The number of parties to print, 0 when there are none or the choice is wrong.
  std::int64_t Pronte(const SceltaElencoParti& scelta);

  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
};

}  // namespace fenalto::documents
