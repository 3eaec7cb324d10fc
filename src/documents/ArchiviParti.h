// The archives of those one sells to and buys from.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto {

/// `Clienti` and `Fornitori`: identity, tax numbers, how their invoices are accounted. Each record
/// has its row in the list that movements search, written and erased with it.
std::vector<DescrizioneArchivio> ArchiviParti();

}  // namespace fenalto
