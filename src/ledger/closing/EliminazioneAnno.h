// A year and all that it holds erased.
#pragma once

#include <string>

#include "core/session/Ambiente.h"

namespace fenalto::ledger {

/// Refusals, questions, a copy first, one transaction. True when the year is gone: the session's
/// list of years is to be read again.
bool EliminaAnno(Ambiente& ambiente, int anno);

}  // namespace fenalto::ledger
