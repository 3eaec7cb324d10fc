// The window "Controllo saldi contabili con scadenze in vita": thin over TestSaldi.
#pragma once

#include "duedates/reports/TestSaldi.h"
#include "screens/duedates/reports/FinestraRapportoScadenze.h"

namespace fenalto::screens {

class FinestraTestSaldi : public FinestraRapportoScadenze {
  Q_OBJECT

 public:
  explicit FinestraTestSaldi(Finestre& finestre);

 protected:
  void Stampa() override;

 private:
  duedates::TestSaldi test_;
};

}  // namespace fenalto::screens
