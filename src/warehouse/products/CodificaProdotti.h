// Automatic coding of products: the next code is the one after the highest.
//
// The highest is taken in the order of texts, so that all codes must be numbers of one length; both
// the setting and each new product refuse what isn't so.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "core/session/Ambiente.h"

namespace fenalto::warehouse {

/// The choices of the setting; 0 codes nothing.
inline constexpr std::array kCifreCodifica = {0, 4, 5, 6};

/// Digits of the automatic code; 0 when the company has none.
int CifreCodifica(Ambiente& ambiente);

/// Why codes of so many digits can't go on from those there are; nothing when they can.
std::optional<std::string> ImpedimentoCodifica(Ambiente& ambiente, int cifre);

/// The code after the highest one, when nothing is in the way.
std::string CodiceSeguente(Ambiente& ambiente, int cifre);

/// Confirms the setting; false when it was refused (told).
bool ImpostaCodifica(Ambiente& ambiente, int cifre);

}  // namespace fenalto::warehouse
