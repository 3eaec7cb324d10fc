// The archives of codes of all rooms.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto {

std::vector<DescrizioneArchivio> TuttiGliArchivi();

}  // namespace fenalto
