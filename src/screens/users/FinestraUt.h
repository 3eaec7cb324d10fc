// The window "Impostazione utenti e diritti": users of the company, their levels and passwords.
#pragma once

#include <memory>

#include "core/session/Utenti.h"
#include "screens/common/rows/FinestraSceltaERecord.h"

namespace fenalto::screens {

class FinestraUt : public FinestraSceltaERecord {
  Q_OBJECT

 public:
  explicit FinestraUt(Finestre& finestre);
  ~FinestraUt() override;

  [[nodiscard]] bool InModifica() const override;
  void Aggiorna() override;

 protected:
  [[nodiscard]] bool Aperta() const override;
  void ChiudiRecord() override;
  void FocoScelta() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
