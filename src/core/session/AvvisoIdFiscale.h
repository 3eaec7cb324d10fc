// The warning about a tax number that doesn't check.
#pragma once

#include <string>
#include <string_view>

#include "core/session/Porte.h"

namespace fenalto {

/// Whether a VAT number or tax code checks (IdFiscaleValido); an empty one doesn't. With `segnala`
/// one that doesn't is told, naming `conto` when there is one; it blocks nothing, since a number
/// from abroad is told too.
bool ControlloPartitaIva(Dialoghi& dialogo, std::string_view valore, bool segnala,
                         const std::string& conto = "");

}  // namespace fenalto
