// The ledger's archives of codes.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto {

/// `Causali`, `Categorie`, `Ritenute`.
std::vector<DescrizioneArchivio> ArchiviContabili();

}  // namespace fenalto
