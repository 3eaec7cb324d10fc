// The window of years: a new one opened, an old one or chosen registrations erased.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraNuovoEsercizio : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraNuovoEsercizio(Finestre& finestre);
  ~FinestraNuovoEsercizio() override;
};

}  // namespace fenalto::screens
