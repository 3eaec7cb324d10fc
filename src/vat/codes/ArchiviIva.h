// VAT codes and registers as archives.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::vat {

/// `CodiciIva`, `RegistriIva`.
std::vector<archives::DescrizioneArchivio> ArchiviIva();

}  // namespace fenalto::vat
