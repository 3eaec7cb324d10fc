// The window "Creazione disposizioni di incasso Ri.Ba.": receipts are chosen for a bank and become
// a batch, printed, written to the bank's file and registered.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraRiba : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraRiba(Finestre& finestre);
  ~FinestraRiba() override;

  void Aggiorna() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
