// What the search finds in a company: its accounts, customers, suppliers and products, and the
// records that the user has touched last.
#pragma once

#include <vector>

#include "core/session/Ambiente.h"
#include "overview/IndiceVoci.h"

namespace fenalto::overview {

/// Accounts, parties and products that the user has a right to see: an account leads to its
/// movements, a party to its enquiry, and each to its archive.
std::vector<Voce> LeggiVociDitta(Ambiente& ambiente);
/// The records touched last, as entries.
std::vector<Voce> LeggiVociRecenti(Ambiente& ambiente, std::size_t quante);

}  // namespace fenalto::overview
