// VAT codes as an import from files.
#pragma once

#include "core/archives/GenereImporta.h"

namespace fenalto::vat {

archives::GenereImporta GenereImportaCodiciIva();

}  // namespace fenalto::vat
