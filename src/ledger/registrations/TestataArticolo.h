// The head of a stored registration: its lock, and changing it in place.
#pragma once

#include <cstdint>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::ledger {

/// The lock of a registration in edit, whether it is a VAT one or not; the holder when it is taken.
Esito<Blocco, Detentore> BloccaArticolo(Ambiente& ambiente, int anno, std::int64_t numDoc);

/// Writes the fields of the head with that `ID`, in the caller's transaction. Throws ErroreArchivio
/// (Mancante), naming `numero`, when it was deleted meanwhile.
void AggiornaTestata(Archivio& tessarc, std::int64_t id, std::int64_t numero,
                     const std::vector<Coppia>& campi);

}  // namespace fenalto::ledger
