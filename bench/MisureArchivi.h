// What the windows of archives cost when there are many records.
#pragma once

#include <vector>

#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// Those of `nomi`, on companies of their own: opening an archive of many records to one of few,
/// and the slowest key stroke of a search to the bare engine's query. Needs a QApplication.
std::vector<Rapporto> MisureArchivi(const OpzioniAmbiente& opzioni, const Nomi& nomi);

}  // namespace fenalto::banco
