// Balances of customers or suppliers against their open due dates: where the two differ, the
// archive of due dates and the ledger have gone separate ways.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::duedates {

/// Whose balances; an empty code narrows nothing.
struct SceltaConfronto {
  std::string cfp = "C";  ///< customers or "F" suppliers
  std::string daCliFor;
  std::string aCliFor;
};

/// A party whose balance isn't what is open of it. Both amounts are above zero for what a customer
/// owes, and for what is owed to a supplier.
struct ParteDiscorde {
  std::string cfp;
  std::string cod;
  std::string descrizione;  ///< empty of a party that is no longer in the list of accounts
  Importo saldoContabile;   ///< of the selected year, with its opening
  Importo saldoScadenze;    ///< what is left of all due dates below state "30"
  [[nodiscard]] Importo Differenza() const { return saldoContabile - saldoScadenze; }
};

/// The differing parties in order of code: all who are in the list of accounts, have moved in the
/// year or have a due date open.
std::vector<ParteDiscorde> ConfrontaSaldi(Ambiente& ambiente, const SceltaConfronto& scelta);
/// The same one by one, until `parte` returns false or the user cancels: then false.
bool ConfrontaSaldi(Ambiente& ambiente, const SceltaConfronto& scelta,
                    const std::function<bool(const ParteDiscorde&)>& parte);

}  // namespace fenalto::duedates
