// The window "Stampa Libro Giornale": thin over Giornale.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraGiornale : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraGiornale(Finestre& finestre);
  ~FinestraGiornale() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
