// The ledger's archives of codes.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::ledger {

/// `Causali`, `Categorie`, `Ritenute`.
std::vector<archives::DescrizioneArchivio> ArchiviContabili();

}  // namespace fenalto::ledger
