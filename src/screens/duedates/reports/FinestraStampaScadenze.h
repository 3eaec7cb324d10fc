// The windows "Stampa scadenze per cliente/fornitore" and "Stampa scadenze per data": thin over
// StampaScadenze.
#pragma once

#include <memory>

#include "duedates/reports/LetturaScadenze.h"
#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraStampaScadenze : public FinestraFunzione {
  Q_OBJECT

 public:
  FinestraStampaScadenze(duedates::OrdineScadenze ordine, Finestre& finestre);
  ~FinestraStampaScadenze() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
