// Archives of codes that the warehouse stands on.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::warehouse {

/// `CategorieMag`, `CategorieMag2`, `GruppiMag`, `GruppiMag2`, `Magazzini`, `CausaliMag`.
std::vector<archives::DescrizioneArchivio> ArchiviMagazzino();

}  // namespace fenalto::warehouse
