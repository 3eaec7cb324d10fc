// What finding a product among fifty thousand costs, and the lately sold ones of a big party.
#pragma once

#include <vector>

#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// Those of `nomi`, on a company of their own: the search of a product field, letter by letter, to
/// a plain scan of the same texts in memory (the milliseconds of a letter are told too), and the
/// first page of the products of a party with 100,000 document rows to the engine's own reading of
/// as many rows.
std::vector<Rapporto> MisureProdotti(const OpzioniAmbiente& opzioni, const Nomi& nomi);

}  // namespace fenalto::banco
