// Archives of codes that due dates and payments stand on.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::duedates {

/// `Banche`.
std::vector<archives::DescrizioneArchivio> ArchiviScadenze();

}  // namespace fenalto::duedates
