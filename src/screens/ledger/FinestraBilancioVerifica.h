// The window "Bilancio di Verifica - Situaz.patrimoniale,costi,ricavi,utile,perdita": thin over
// BilancioVerifica. What is chosen above holds for the three pages.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraBilancioVerifica : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraBilancioVerifica(Finestre& finestre);
  ~FinestraBilancioVerifica() override;

  void Aggiorna() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
