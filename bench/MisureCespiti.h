// What ten thousand assets cost: the quotas of a year, the register.
#pragma once

#include <vector>

#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// Those of `nomi`, on a company of their own: the automatic run, with its print, to the same rows
/// read and written bare over a copy of the file, and the register to the engine's own query.
std::vector<Rapporto> MisureCespiti(const OpzioniAmbiente& opzioni, const Nomi& nomi);

}  // namespace fenalto::banco
