// The window "Stampa Libro Giornale": thin over Giornale.
#pragma once

#include "ledger/journal/Giornale.h"
#include "screens/common/reports/FinestraRapporto.h"

namespace fenalto::screens {

class FinestraGiornale : public FinestraRapporto {
  Q_OBJECT

 public:
  explicit FinestraGiornale(Finestre& finestre);

 protected:
  void Cambiato(const std::string& campo) override;
  void Stampa() override;

 private:
  ledger::Giornale giornale_;
};

}  // namespace fenalto::screens
