// The window "Registr.anticipi su fatture da emettere/ricevere".
#pragma once

#include "screens/duedates/payments/FinestraScadenzaDigitata.h"

namespace fenalto::screens {

class FinestraAnticipi : public FinestraScadenzaDigitata {
  Q_OBJECT

 public:
  explicit FinestraAnticipi(Finestre& finestre);
};

}  // namespace fenalto::screens
