// Documents: a confirmation and the proposal of a row, against bare statements.
#pragma once

#include <vector>

#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// `documento`: confirming one of thirty rows, against head and rows bound to prepared insertions
/// into the same tables with their indexes. `riga-documento`: what a product brings onto a row,
/// with stock and cost beside it, against the statements that read as much.
std::vector<Rapporto> MisureDocumenti(const OpzioniAmbiente& opzioni, const Nomi& nomi);

}  // namespace fenalto::banco
