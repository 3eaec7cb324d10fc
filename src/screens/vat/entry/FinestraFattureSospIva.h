// The window "Fatture in sospensione iva pagate": deferred-VAT invoices and their day of
// collection.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraFattureSospIva : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraFattureSospIva(Finestre& finestre);
  ~FinestraFattureSospIva() override;

  void Aggiorna() override;

 protected:
  bool PremiConferma() override { return Premi({"Imposta"}); }

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
