// The window "Modifica impostazioni Ditta": the company's data and choices.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraUtility : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraUtility(Finestre& finestre);
  ~FinestraUtility() override;

  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  void Aggiorna() override;

 protected:
  bool PremiConferma() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
