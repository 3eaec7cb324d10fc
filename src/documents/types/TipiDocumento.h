// The archive of document types.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::documents {

// Pages and frames that the window adds to.
inline constexpr const char* kPaginaStampaTipo = "PaginaStampa";
inline constexpr const char* kPaginaScontriniTipo = "PaginaScontrini";
/// Buttons beside a path: `Scegli` and the field's name.
inline constexpr const char* kScegli = "Scegli";

/// `TipiFattureCli`.
archives::DescrizioneArchivio ArchivioTipiDocumento();

/// Names of the personal print models: the files "*.Mod" of the folder `Ini`, without extension.
std::vector<std::string> ModelliPersonali(const Ambiente& ambiente);

/// A chosen path as a type keeps it: from the company's folder when it lies inside it. Too long a
/// one is told, and empty.
std::string PercorsoTenuto(Ambiente& ambiente, const std::filesystem::path& scelto);
/// Where such a path leads; empty for none.
std::filesystem::path PercorsoVero(const Ambiente& ambiente, const std::string& tenuto);

}  // namespace fenalto::documents
