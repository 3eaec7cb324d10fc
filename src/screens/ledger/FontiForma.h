// The code sources that fields of registrations, due dates and payments name in their tables.
#pragma once

#include <string>

#include "core/records/DescrizioneForma.h"

namespace fenalto::screens {

/// Accounts of a class ("P", "C", "F"; any other counts as "P").
records::FonteCampo DaConti(const std::string& classe = "P");
/// The same for contra-entries.
records::FonteCampo DaContropartite(const std::string& classe = "P");
/// Lists the causals that a user registers with; a typed code may be any of the archive, those of
/// the VAT registrations included.
records::FonteCampo DaCausali();
records::FonteCampo DaCategorie();
records::FonteCampo DaCodiciIva();
/// Payment codes.
records::FonteCampo DaPagamenti();
/// The VAT registers of a type.
records::FonteCampo DaRegistriIva(const std::string& tipo);
/// Types of payment.
records::FonteCampo DaTipiPagamento();
/// Banks of presentation.
records::FonteCampo DaBanche();

}  // namespace fenalto::screens
