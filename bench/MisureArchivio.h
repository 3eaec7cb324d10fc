// What the store and the ledger cost beside the bare engine.
#pragma once

#include <filesystem>
#include <vector>

#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// Those of `nomi`. `ambiente` has the generated company open on its last year; `nuda` is its plain
/// copy.
std::vector<Rapporto> MisureArchivio(Ambiente& ambiente, const std::filesystem::path& nuda,
                                     const Nomi& nomi);

}  // namespace fenalto::banco
