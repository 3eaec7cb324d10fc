// Values as plain text on paper.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/Valore.h"

namespace fenalto::reports {

/// A value as a reader expects it where no picture says how: dates gg/mm/aaaa, amounts with a comma
/// and the decimals they have, no marks of thousands, yes-no as "Sì" and "No", Null and the null
/// date as nothing.
std::string TestoStampato(const Valore& valore);

/// Appends at most `massimo` characters as they are shown (lettere::Mostrabile), tabs and line ends
/// as blanks; gives how many were appended.
std::size_t AccodaPulito(std::string& riga, std::string_view testo,
                         std::size_t massimo = std::string_view::npos);

/// Pieces of at most `larghezza` characters, broken at blanks where it can; one at least.
std::vector<std::string> InRighe(const std::string& testo, std::size_t larghezza);

/// Whether the value is a number, which must not be cut.
[[nodiscard]] bool Numerico(const Valore& valore);

}  // namespace fenalto::reports
