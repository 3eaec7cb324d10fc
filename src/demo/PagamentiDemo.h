// The payments of the company `Demo`: what falls due is settled through the bank, but for a few
// customers who are always late.
#pragma once

#include "demo/DialoghiMuti.h"
#include "duedates/payments/RegistraPagamento.h"

namespace fenalto::demo {

class PagamentiDemo {
 public:
  PagamentiDemo(Ambiente& ambiente, DialoghiMuti& dialoghi)
      : ambiente_(ambiente), dialoghi_(dialoghi) {}

  /// Settles what has fallen due up to that day of the selected year, one registration a party.
  /// Throws ErroreArchivio when one is refused.
  void FinoA(Data data);

 private:
  void Paga(const std::string& cfp, Data data);
  void Registra(const duedates::Pagamento& pagamento);

  Ambiente& ambiente_;
  DialoghiMuti& dialoghi_;
};

}  // namespace fenalto::demo
