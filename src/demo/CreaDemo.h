// The company `Demo`: two years in euro with believable registrations and VAT documents, written by
// the program's own routines.
#pragma once

#include "core/session/Ambiente.h"

namespace fenalto::demo {

/// Makes the company `Demo` from the model company when the program folder has no company at all:
/// parties, banks, agents, some hundred registrations of the last year and the current one, and the
/// VAT documents of the last three months with their due dates. Returns false when there was
/// nothing to do.
Esito<bool> CreaDemoSeVuota(const OpzioniAmbiente& opzioni, Orologio& orologio);

}  // namespace fenalto::demo
