// What the VAT registrations cost: one confirmed, and their window over a register that is full.
#pragma once

#include <vector>

#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// Those of `nomi`, on companies of their own: the confirmation of a purchase invoice to the same
/// rows written bare over both files, and the opening of the window on a full register to one
/// nearly empty. Needs a QApplication.
std::vector<Rapporto> MisureFatture(const OpzioniAmbiente& opzioni, const Nomi& nomi);

}  // namespace fenalto::banco
