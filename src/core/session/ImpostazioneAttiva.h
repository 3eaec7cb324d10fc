// Settings that say yes or no.
#pragma once

#include <string_view>

#include "core/session/Ambiente.h"

namespace fenalto {

/// A key of section `config` that says yes: "Si", "True", "vero" or any number but zero. A missing
/// or empty one is `seVuota`.
bool ImpostazioneAttiva(Ambiente& ambiente, std::string_view chiave, bool seVuota = false);

}  // namespace fenalto
