// The text of due dates that prints on an invoice.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "duedates/schedules/CreaScadenze.h"

namespace fenalto::duedates {

/// Characters of a line of that text.
inline constexpr std::size_t kLarghezzaScadPag = 80;

/// Amount as "###.###,###", a blank, date as "dd.mm.yy"; pairs are joined by " - ", or by a line
/// break where the next would pass the width.
std::string TestoScadenze(const std::vector<RataDocumento>& rate,
                          std::size_t larghezza = kLarghezzaScadPag);

}  // namespace fenalto::duedates
