// VAT codes as an import from files.
#pragma once

#include "core/archives/GenereImporta.h"

namespace fenalto {

GenereImporta GenereImportaCodiciIva();

}  // namespace fenalto
