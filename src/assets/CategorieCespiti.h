// The archive of categories of assets, with their rates.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "assets/QuotaAutomatica.h"
#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::assets {

/// Archives of the room.
std::vector<archives::DescrizioneArchivio> ArchiviCespiti();

/// Rates of a category; none of an unknown one.
AliquoteCategoria LeggiAliquote(Ambiente& ambiente, const std::string& cat);

/// First and last code of the archive.
IntervalloCategorie TutteLeCategorie(Ambiente& ambiente);

}  // namespace fenalto::assets
