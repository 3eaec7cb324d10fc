// The repairs of "Compattamento database ed utilità": each makes a verified copy first, works in
// one transaction, and names the copy when it is done.
#pragma once

#include "core/session/Ambiente.h"

namespace fenalto::admin {

class Riparazioni {
 public:
  explicit Riparazioni(Ambiente& ambiente) : ambiente_(ambiente) {}

  /// Accounts in the heads of the registrations that are on no VAT register, from their rows.
  /// (`AggiornaDiversi`)
  bool AggiornaDiversi();
  /// The list of accounts, customers and suppliers, from their archives. (`OK2`)
  bool RifaiContiClientiFornitori();
  /// The stored settlements of a year; the credit that it began with is on hand again.
  /// (`Command3`)
  bool EliminaLiquidazioni(int anno);

 private:
  Ambiente& ambiente_;
};

}  // namespace fenalto::admin
