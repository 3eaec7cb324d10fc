// The parties, banks and agents of the company `Demo`, and its settings.
#pragma once

#include "core/session/Ambiente.h"
#include "demo/DialoghiMuti.h"

namespace fenalto::demo {

inline constexpr int kCifreParteDemo = 4;
/// Code of the party at place `numero` of its list, from 1: "0001".
std::string CodiceParteDemo(std::size_t numero);

/// Settings in the company's file: heading, and the automatic registrations all on.
void ScriviImpostazioniDemo(Ambiente& ambiente);
/// Parties, banks and agents; throws ErroreArchivio when the archives refuse one.
void ScriviAnagraficheDemo(Ambiente& ambiente, DialoghiMuti& dialoghi);

}  // namespace fenalto::demo
