// The panel behind the button `saldo` of accounts and parties.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "ledger/accounts/SaldoConto.h"

namespace fenalto::ledger {

/// What the panel asks of the ledger, for all accounts of a class: the selected year, without
/// regard to the days of its movements. The account is to be put in.
SaldoConto::Richiesta RichiestaSaldo(Ambiente& ambiente, const std::string& cfp);

/// Opening, debit, credit and balance of an account in the selected year, a line each. `cfp` is the
/// class: "P" account, "C" customer, "F" supplier.
std::vector<std::string> RigheSaldo(Ambiente& ambiente, const std::string& cfp,
                                    const std::string& codice);

}  // namespace fenalto::ledger
