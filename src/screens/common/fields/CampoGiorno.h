// Date fields that complete a typed day from the session's year.
#pragma once

#include "core/session/Ambiente.h"
#include "screens/common/fields/Campi.h"

namespace fenalto::screens {

/// A day, in the width of a date.
CampoData* CampoGiorno(const char* nome, Ambiente& sessione);
/// The same, bound to no record: left, it writes the day out, or shows that it can't be read.
CampoData* CampoGiornoLibero(const char* nome, Ambiente& sessione, Data proposto = {});

}  // namespace fenalto::screens
