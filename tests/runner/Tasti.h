// Days and keys as a copione writes them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/values/Data.h"

namespace fenalto::copione {

/// A key with its modifiers. `nome` is one of Invio, Tab, Esc, Spazio, Ins, Canc, Su, Giu, F1 to
/// F12, or the letter or digit itself.
struct Tasto {
  std::string nome;
  bool ctrl = false;
  bool maiusc = false;
  bool alt = false;
};

/// "Ctrl+Invio", "F2", "a"; nothing on anything else. Names without case.
std::optional<Tasto> TastoDi(std::string_view testo);

/// "15/03/2024"; nothing when there is no such day.
std::optional<Data> GiornoDi(std::string_view testo);

}  // namespace fenalto::copione
