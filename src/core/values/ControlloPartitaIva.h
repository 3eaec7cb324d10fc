// The check digit of an Italian VAT number.
#pragma once

#include <cstddef>
#include <string_view>

namespace fenalto {

/// Digits of a VAT number.
inline constexpr std::size_t kCifrePartitaIva = 11;

/// Why `partitaIva` can't be right, empty when it is or nothing is given: eleven digits, the last
/// of which checks the others. Blanks around it and a leading "IT" don't count. A number that
/// begins with another state's letters isn't looked into.
std::string_view ControlloPartitaIva(std::string_view partitaIva) noexcept;

/// Whether these are eleven digits with the right check digit (not all zero).
bool UndiciCifreValide(std::string_view cifre) noexcept;

}  // namespace fenalto
