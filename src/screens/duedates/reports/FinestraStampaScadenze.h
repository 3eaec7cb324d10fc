// The windows "Stampa scadenze per cliente/fornitore" and "Stampa scadenze per data": thin over
// StampaScadenze.
#pragma once

#include "duedates/reports/StampaScadenze.h"
#include "screens/duedates/reports/FinestraRapportoScadenze.h"

namespace fenalto::screens {

class FinestraStampaScadenze : public FinestraRapportoScadenze {
  Q_OBJECT

 public:
  FinestraStampaScadenze(duedates::OrdineScadenze ordine, Finestre& finestre);

 protected:
  void Stampa() override;
  reports::Foglio Foglio() override;
  [[nodiscard]] std::string NomeFoglio() const override;

 private:
  [[nodiscard]] duedates::SceltaStampaScadenze Digitata() const;

  duedates::OrdineScadenze ordine_;
  duedates::StampaScadenze stampa_;
};

}  // namespace fenalto::screens
