// What due dates cost: their selection, a payment of many, a batch of receipts.
#pragma once

#include <vector>

#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// Those of `nomi`, on a company of their own: the open due dates of customers among half a million
/// to the engine's own query, a payment of two hundred to the same rows written bare over
/// copies of both files, and the bank's file of a full batch to the print of that batch.
std::vector<Rapporto> MisureScadenze(const OpzioniAmbiente& opzioni, const Nomi& nomi);

}  // namespace fenalto::banco
