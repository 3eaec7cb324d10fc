// The company `Demo`: two years in euro with believable registrations, written by the program's
// own routines.
#pragma once

#include "core/session/Ambiente.h"

namespace fenalto {

/// Makes the company `Demo` from the model company when the program folder has no company at all:
/// customers, suppliers, and some hundred registrations of the last year and the current one.
/// Returns false when there was nothing to do.
Esito<bool> CreaDemoSeVuota(const OpzioniAmbiente& opzioni, Orologio& orologio);

}  // namespace fenalto
