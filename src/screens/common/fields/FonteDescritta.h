// The source of a code field, made from its description.
#pragma once

#include <memory>

#include "core/records/DescrizioneForma.h"
#include "core/session/Ambiente.h"
#include "screens/common/fields/FonteCodici.h"

namespace fenalto::screens {

/// A source with a narrower list describes any code and searches the listed ones.
std::shared_ptr<FonteCodici> CreaFonte(Ambiente& ambiente, const records::FonteCampo& fonte);

}  // namespace fenalto::screens
