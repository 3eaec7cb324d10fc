// The window "Controllo saldi contabili con scadenze in vita": thin over TestSaldi.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraTestSaldi : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraTestSaldi(Finestre& finestre);
  ~FinestraTestSaldi() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
