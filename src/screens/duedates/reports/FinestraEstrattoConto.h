// The window "Stampa Estratto Conto": thin over EstrattoConto.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraEstrattoConto : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraEstrattoConto(Finestre& finestre);
  ~FinestraEstrattoConto() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
