// The check letter of an Italian tax code.
#pragma once

#include <cstddef>
#include <string_view>

namespace fenalto {

/// Characters of a person's tax code.
inline constexpr std::size_t kCaratteriCodiceFiscale = 16;

/// Why `codiceFiscale` can't be right, empty when it is or nothing is given: sixteen characters of
/// a person, the last of which checks the others, or the eleven digits of a company. Letters that
/// stand for digits (given to people whose codes would be equal) are taken. Case and blanks around
/// it don't count.
std::string_view ControlloCodiceFiscale(std::string_view codiceFiscale) noexcept;

/// Whether the last of sixteen letters and digits checks the others; their form isn't looked at.
bool LetteraDiControlloGiusta(std::string_view sedici) noexcept;

}  // namespace fenalto
