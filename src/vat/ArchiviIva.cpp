#include "vat/ArchiviIva.h"

#include "vat/CodiciIva.h"
#include "vat/RegistriIva.h"

namespace fenalto {

std::vector<DescrizioneArchivio> ArchiviIva() {
  return {CodiciIva(), RegistriIva()};
}

}  // namespace fenalto
