// The window "Stampa Registro Iva Unico": thin over RegistroIvaUnico.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraRegistroIva : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraRegistroIva(Finestre& finestre);
  ~FinestraRegistroIva() override;

  void Aggiorna() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
