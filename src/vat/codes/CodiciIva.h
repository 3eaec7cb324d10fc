// VAT codes: how a taxable amount is taxed, and its column in the annual lists.
#pragma once

#include <string_view>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::vat {

/// The code of receipts yet to be ventilated, which only the program makes.
inline constexpr std::string_view kCodiceVentilazione = "ZCOR";
inline constexpr std::string_view kDescrizioneVentilazione = "VENTILZ.CORRISP.";

archives::DescrizioneArchivio CodiciIva();

}  // namespace fenalto::vat
