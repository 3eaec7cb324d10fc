// What the closing of a year costs.
#pragma once

#include <vector>

#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// The closing of a year with kPartiChiuse customers, on a company of its own, to the same rows
/// read and written bare over a copy of its file.
std::vector<Rapporto> MisureChiusure(const OpzioniAmbiente& opzioni, const Nomi& nomi);

}  // namespace fenalto::banco
