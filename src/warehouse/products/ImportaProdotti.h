// The import of products from a file, with what their suppliers ask for them.
#pragma once

#include "core/archives/GenereImporta.h"

namespace fenalto::warehouse {

/// Products: a line each, and a further line for each further supplier of one.
archives::GenereImporta GenereImportaProdotti();

}  // namespace fenalto::warehouse
