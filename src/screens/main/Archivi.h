// The archives of codes of all rooms.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::screens {

std::vector<archives::DescrizioneArchivio> TuttiGliArchivi();

}  // namespace fenalto::screens
