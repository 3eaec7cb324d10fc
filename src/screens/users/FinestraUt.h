// The window "Impostazione utenti e diritti": users of the company, their levels and passwords.
#pragma once

#include <memory>

#include "core/session/Utenti.h"
#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraUt : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraUt(Finestre& finestre);
  ~FinestraUt() override;

  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  bool Indietro() override;
  void Aggiorna() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
