// The window "Raggruppamento Ri.Ba.": receipts of a customer that fall due together become one.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraRaggruppamento : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraRaggruppamento(Finestre& finestre);
  ~FinestraRaggruppamento() override;

  void Aggiorna() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
