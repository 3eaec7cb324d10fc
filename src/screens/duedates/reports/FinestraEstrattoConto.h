// The window "Stampa Estratto Conto": thin over EstrattoConto.
#pragma once

#include "duedates/reports/EstrattoConto.h"
#include "screens/duedates/reports/FinestraRapportoScadenze.h"

namespace fenalto::screens {

class FinestraEstrattoConto : public FinestraRapportoScadenze {
  Q_OBJECT

 public:
  explicit FinestraEstrattoConto(Finestre& finestre);

 protected:
  records::StatoCampo Stato(const std::string& campo) override;
  void Stampa() override;

 private:
  duedates::EstrattoConto estratto_;
};

}  // namespace fenalto::screens
