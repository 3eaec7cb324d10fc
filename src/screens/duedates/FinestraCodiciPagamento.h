// The window of payment codes: that of every archive, with the page of the rates and that of the
// test.
#pragma once

#include <memory>

#include "duedates/RateCodice.h"
#include "screens/common/FinestraArchivio.h"

namespace fenalto {

class PannelloProva;
class RiquadroRata;

class FinestraCodiciPagamento : public FinestraArchivio {
  Q_OBJECT

 public:
  explicit FinestraCodiciPagamento(Finestre& finestre);
  ~FinestraCodiciPagamento() override;

  void Abbandona() override;
  bool Indietro() override;

 protected:
  void MostraRecord() override;
  bool RaccogliAltro() override;
  [[nodiscard]] bool AltroModificato() const override;

 private:
  FinestraCodiciPagamento(std::shared_ptr<RateCodice> rate, Finestre& finestre);

  std::shared_ptr<RateCodice> rate_;
  RiquadroRata* righe_;
  PannelloProva* prova_;
  std::string mostrato_;  ///< code whose test stands on the screen
};

}  // namespace fenalto
