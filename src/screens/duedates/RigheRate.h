// The rates of a payment code as rows of its record.
#pragma once

#include <functional>

#include "duedates/codes/RateCodice.h"
#include "screens/common/rows/RigheDelRecord.h"

namespace fenalto::screens {

/// `codice` is the open code's record; `rate` outlives the rows.
DescrizioneRighe RigheRate(duedates::RateCodice& rate, std::function<Scheda&()> codice);

}  // namespace fenalto::screens
