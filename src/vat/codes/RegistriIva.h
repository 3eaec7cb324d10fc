// VAT registers: on which book a document is numbered, and which account receives its VAT.
#pragma once

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::vat {

archives::DescrizioneArchivio RegistriIva();

}  // namespace fenalto::vat
