// The forms of a document as tables: its head, what stands on the second page, its open row; and
// how their fields are shown for the document as it is.
#pragma once

#include <string>

#include "core/records/DescrizioneForma.h"
#include "documents/entry/FattureCli.h"

namespace fenalto::screens {

/// What is typed on every document: number, date, party, warehouse. Later turns are seldom touched.
records::DescrizioneForma FormaTestaDocumento();
/// The page of the second form that withholdings stand on.
inline constexpr const char* kFoglioRitenute = "FoglioRitenute";
/// Transport, destination, payment, notes; on a page of their own, withholdings.
records::DescrizioneForma FormaAltriDati();
records::StatoCampo StatoTestaDocumento(documents::FattureCli& documento, const std::string& nome);

/// `decQ` and `decP` are the least decimals of quantities and prices.
records::DescrizioneForma FormaRigaDocumento(int decQ, int decP);
}  // namespace fenalto::screens
