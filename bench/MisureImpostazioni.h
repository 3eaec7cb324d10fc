// What reading a setting costs beside a table in memory.
#pragma once

#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// Ten thousand reads of all keys of a company whose file has them all, against as many reads of an
/// unordered map filled once. Makes its own company.
Rapporto MisuraImpostazioni(const OpzioniAmbiente& opzioni);

}  // namespace fenalto::banco
