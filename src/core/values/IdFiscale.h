// A tax number as documents carry it: a VAT number or a tax code in one field.
#pragma once

#include <string_view>

namespace fenalto {

/// Whether these are eleven digits, or sixteen letters and digits, whose last one checks the
/// others. A number padded with blanks into sixteen places counts without them; what a state
/// abroad gives out never passes. Nothing else is looked at: neither a form nor a prefix.
bool IdFiscaleValido(std::string_view numero) noexcept;

}  // namespace fenalto
