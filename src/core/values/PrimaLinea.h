// The first line of a text of several.
#pragma once

#include <algorithm>
#include <string>

namespace fenalto {

/// Up to the first line end.
inline std::string PrimaLinea(std::string testo) {
  testo.resize(std::min(testo.find_first_of("\r\n"), testo.size()));
  return testo;
}

}  // namespace fenalto
