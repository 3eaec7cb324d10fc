// Warnings about the date of a registration.
#pragma once

#include "core/session/Ambiente.h"

namespace fenalto::ledger {

/// True when `data` lies before the last date printed on the journal, and has then said so. A null
/// date counts as Ambiente::DataMinima().
bool ControlloDataGiornale(Ambiente& ambiente, Data data);

/// Compares the year of `data` with `anno` (the selected year when 0). A difference warns; with
/// `chiediConferma` it asks whether to go on (default no). True when the user refused.
bool ControlloAnno(Ambiente& ambiente, Data data, bool chiediConferma, int anno = 0);

}  // namespace fenalto::ledger
