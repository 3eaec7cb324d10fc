// The windows of payments, of several parties and of one: thin over PagamentiScadenzario.
//
// Open due dates above, chosen by double click or Enter; the rows of the payment below, with the
// fields of the one that is open beside them.
#pragma once

#include <memory>

#include "duedates/payments/PagamentiScadenzario.h"
#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraPagamenti : public FinestraFunzione {
  Q_OBJECT

 public:
  FinestraPagamenti(duedates::PagamentiScadenzario::Modo modo, Finestre& finestre);
  ~FinestraPagamenti() override;

  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  bool Indietro() override;
  void Aggiorna() override;
  /// "C|0001": that party.
  void ApriRecord(const Rinvio& rinvio) override;

 protected:
  bool Invio(QWidget& campo) override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
