// The head of a stored registration, changed in place.
#pragma once

#include <cstdint>
#include <vector>

#include "core/store/Archivio.h"

namespace fenalto::ledger {

/// Writes the fields of the head with that `ID`, in the caller's transaction. Throws ErroreArchivio
/// (Mancante), naming `numero`, when it was deleted meanwhile.
void AggiornaTestata(Archivio& tessarc, std::int64_t id, std::int64_t numero,
                     const std::vector<Coppia>& campi);

}  // namespace fenalto::ledger
