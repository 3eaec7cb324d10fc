// Why a use case stops: the value that checks return instead of throwing.
#pragma once

#include <string>

namespace fenalto {

/// Why a confirmation or a deletion stops. `messaggio` empty when the user was told already (a
/// question answered no); `campo` is the control that takes the focus, empty for none.
struct Rifiuto {
  std::string messaggio;
  std::string campo;
};

}  // namespace fenalto
