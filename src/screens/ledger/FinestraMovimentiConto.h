// The window of one account's movements with the running balance: where a double click on an
// account leads. It has no menu entry of its own.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraMovimentiConto : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraMovimentiConto(Finestre& finestre);
  ~FinestraMovimentiConto() override;

  /// Shows an account; without a class, a code of the class chosen.
  void ApriRecord(const Rinvio& rinvio) override;
  void Aggiorna() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
