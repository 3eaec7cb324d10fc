// The window "Stampa Registri Iva", the older print of one register: thin over RegistroIvaUnico.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraRegistriIva : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraRegistriIva(Finestre& finestre);
  ~FinestraRegistriIva() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
