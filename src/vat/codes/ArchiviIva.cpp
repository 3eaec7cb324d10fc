#include "vat/codes/ArchiviIva.h"

#include "vat/codes/CodiciIva.h"
#include "vat/codes/RegistriIva.h"

namespace fenalto::vat {

std::vector<archives::DescrizioneArchivio> ArchiviIva() {
  return {CodiciIva(), RegistriIva()};
}

}  // namespace fenalto::vat
