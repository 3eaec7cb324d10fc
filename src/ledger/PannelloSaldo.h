// The panel behind the button `saldo` of accounts and parties.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto {

/// Opening, debit, credit and balance of an account in the selected year, a line each. `cfp` is the
/// class: "P" account, "C" customer, "F" supplier.
std::vector<std::string> RigheSaldo(Ambiente& ambiente, const std::string& cfp,
                                    const std::string& codice);

}  // namespace fenalto
