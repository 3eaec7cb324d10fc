// Printed form of the journal.
#pragma once

#include <string>

#include "ledger/journal/Giornale.h"

namespace fenalto::ledger {

/// Condition of a choice on the heads ("Articoli.Anno=2024 AND ...").
std::string CondizioneGiornale(const SceltaGiornale& scelta, int anno);

/// Lays the rows out on pages, each of which ends and begins with the amounts carried forward.
/// False when the user gave up, cancelled, or the output failed.
bool StampaRigheGiornale(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                         const SceltaGiornale& scelta);

}  // namespace fenalto::ledger
