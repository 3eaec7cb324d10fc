// How wide a text is on paper, where no device is at hand to measure it: pages are composed without
// one, and a text that goes on in further lines must be broken before the page is full.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/reports/Pagina.h"

namespace fenalto::reports {

/// In hundredths of a millimetre, by the widths of the narrow face that the program is shipped with
/// and prints with; what it has no letter for, and other faces, are taken to be wider.
[[nodiscard]] int LarghezzaTesto(std::string_view testo, const Carattere& carattere);

/// Lines of at most `larghezza`, broken at blanks where it can; one at least. A text that begins
/// with blanks keeps them on every line.
[[nodiscard]] std::vector<std::string> InLarghezza(std::string_view testo, int larghezza,
                                                   const Carattere& carattere);

}  // namespace fenalto::reports
