// "Copie di sicurezza": what copies there are, made now, looked at, gone back to.
#pragma once

#include <memory>

#include "screens/company/PaginaDitta.h"

namespace fenalto::screens {

class PaginaCopie : public PaginaDitta {
  Q_OBJECT

 public:
  explicit PaginaCopie(Finestre& finestre);
  ~PaginaCopie() override;

  [[nodiscard]] QString Titolo() const override { return tr("Copie di sicurezza"); }
  void Aggiorna() override;
  [[nodiscard]] const char* PulsanteConferma() const override { return "CopiaAdesso"; }

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
