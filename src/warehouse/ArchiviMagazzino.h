// Archives of codes that the warehouse stands on.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto {

/// `CategorieMag`, `CategorieMag2`, `GruppiMag`, `GruppiMag2`, `Magazzini`, `CausaliMag`.
std::vector<DescrizioneArchivio> ArchiviMagazzino();

}  // namespace fenalto
