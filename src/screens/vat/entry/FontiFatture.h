// The code sources of a VAT registration that the journal's don't have.
#pragma once

#include <memory>

#include "core/session/Ambiente.h"
#include "screens/common/fields/FonteCodici.h"

namespace fenalto::screens {

/// The VAT registers; of one type only when it isn't empty.
std::shared_ptr<FonteCodici> FonteRegistri(Ambiente& ambiente, const std::string& tipo = {});
std::shared_ptr<FonteCodici> FonteCodiciIva(Ambiente& ambiente);
std::shared_ptr<FonteCodici> FontePagamenti(Ambiente& ambiente);

}  // namespace fenalto::screens
