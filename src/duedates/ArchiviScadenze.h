// Archives of codes that due dates and payments stand on.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto {

/// `Banche`.
std::vector<DescrizioneArchivio> ArchiviScadenze();

}  // namespace fenalto
