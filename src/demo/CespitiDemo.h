// The assets of the company `Demo`, with their quotas up to the year before the current one.
#pragma once

#include "core/session/Ambiente.h"
#include "demo/DialoghiMuti.h"

namespace fenalto::demo {

/// Throws ErroreArchivio when a card is refused.
void ScriviCespitiDemo(Ambiente& ambiente, const DialoghiMuti& dialoghi, int corrente);

}  // namespace fenalto::demo
