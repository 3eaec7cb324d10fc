// What the ledger lets import from files: the chart of accounts, customers, suppliers.
#pragma once

#include <string>
#include <vector>

#include "core/archives/GenereImporta.h"

namespace fenalto::ledger {

/// `Conti` (a code without a point is a master), `Clienti`, `Fornitori`.
std::vector<archives::GenereImporta> GeneriImportaContabili();

/// Customers or suppliers.
archives::GenereImporta GenereParti(const std::string& tabella);

}  // namespace fenalto::ledger
