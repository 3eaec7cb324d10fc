// Amounts as tests write them.
#pragma once

#include "core/values/Importo.h"

namespace fenalto::prova {

/// Amount of a text in units: "12.5".
inline Importo I(const char* testo) {
  return Importo::DaTesto(testo).value();
}

}  // namespace fenalto::prova
