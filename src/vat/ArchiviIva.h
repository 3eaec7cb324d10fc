// VAT codes and registers as archives.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto {

/// `CodiciIva`, `RegistriIva`.
std::vector<DescrizioneArchivio> ArchiviIva();

}  // namespace fenalto
