// What an Archivio holds.
#pragma once

#include <memory>

#include "core/store/Archivio.h"
#include "core/store/NucleoBasi.h"

namespace fenalto {

struct Archivio::Interno {
  std::shared_ptr<DatiArchivio> dati;
};

}  // namespace fenalto
