// The window of payment codes: that of every archive, with the page of the rates and that of the
// test.
#pragma once

#include <memory>

#include "duedates/codes/RateCodice.h"
#include "screens/common/archive/FinestraArchivioConRighe.h"

namespace fenalto::screens {

class PannelloProva;

class FinestraCodiciPagamento : public FinestraArchivioConRighe {
  Q_OBJECT

 public:
  explicit FinestraCodiciPagamento(Finestre& finestre);
  ~FinestraCodiciPagamento() override;

  void Abbandona() override;

 protected:
  void MostraRecord() override;

 private:
  FinestraCodiciPagamento(std::shared_ptr<duedates::RateCodice> rate, Finestre& finestre);

  std::shared_ptr<duedates::RateCodice> rate_;
  PannelloProva* prova_;
  std::string mostrato_;  ///< code whose test stands on the screen
};

}  // namespace fenalto::screens
