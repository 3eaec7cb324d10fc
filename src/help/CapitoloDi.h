// Which chapter of the guide a window belongs to.
#pragma once

#include <string_view>

#include "help/Guida.h"

namespace fenalto::help {

/// By the function's name in the menu map; "Sfondo" is the start page. A function that the table
/// doesn't name is an archive of codes, as most are; no function leads to the guide's beginning.
Posto CapitoloDi(std::string_view funzione);

}  // namespace fenalto::help
