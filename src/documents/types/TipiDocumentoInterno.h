// Checks of the archive of document types.
#pragma once

#include <string>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::documents {

/// `Rifiuto` of a path; in characters.
inline constexpr std::size_t kMassimoPercorsoTipo = 250;
inline constexpr const char* kPercorsoLungo = "il percorso è più lungo di 250 caratteri";

/// Remembered when `TipoDefault` was ticked by hand: a copy doesn't take it over.
inline constexpr const char* kPredefinitoScelto = "predefinito";

/// The causal's sense: "C", "S", empty for none.
std::string SensoCausale(Ambiente& ambiente, const std::string& causale);

/// Sets `TipoStampa` and the title that follows from it, before the checks.
void CompletaTipo(archives::ContestoArchivio& contesto);
/// Those of a confirmation, in their order.
std::vector<archives::DescrizioneArchivio::Controllo> ControlliTipo();
/// Those that come after an existing code, guards and references.
std::vector<archives::DescrizioneArchivio::Controllo> ControlliTipoInFondo();
/// The type of the opening stock stays, under its code.
std::optional<Rifiuto> TipoPredefinito(archives::ContestoArchivio& contesto);

}  // namespace fenalto::documents
