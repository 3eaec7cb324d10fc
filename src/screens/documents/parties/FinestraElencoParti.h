// The windows "Stampa anagrafica e contabile" of customers and of suppliers: thin over ElencoParti.
#pragma once

#include <memory>
#include <string>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraElencoParti : public FinestraFunzione {
  Q_OBJECT

 public:
  /// `cfp` is "C" or "F".
  FinestraElencoParti(const std::string& cfp, Finestre& finestre);
  ~FinestraElencoParti() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
