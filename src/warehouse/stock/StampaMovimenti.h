// The movements of a product, printed or as a sheet, as its view shows them.
#pragma once

#include "core/reports/Foglio.h"
#include "core/reports/SceltaRifiutata.h"
#include "core/reports/Uscita.h"
#include "warehouse/stock/VistaMovimenti.h"

namespace fenalto::warehouse {

struct SceltaMovimenti {
  FiltroMovimenti filtro;
  bool stGrafico = false;
  double xTar = 0;
};

class StampaMovimenti : public reports::SceltaRifiutata {
 public:
  StampaMovimenti(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), uscite_(uscite) {}

  /// Prints; false when there is no such product (told) or it was cancelled.
  bool Stampa(const SceltaMovimenti& scelta);
  /// The same rows; without columns when there is nothing to show.
  reports::Foglio Foglio(const SceltaMovimenti& scelta);

 private:
  bool Pronto(const SceltaMovimenti& scelta);

  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
};

}  // namespace fenalto::warehouse
