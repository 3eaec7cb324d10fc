// The open company as a whole: another name, the bin, and what is in the bin.
#pragma once

#include <string>

#include "core/session/Ambiente.h"

namespace fenalto::admin {

/// `ModificaNome`: warns, asks, has the old name typed, and renames folder and settings; the
/// session goes on with the company under its new name. False when nothing was changed (it was
/// told). `nuovo` is what was typed for it; when empty it is asked for last.
bool ModificaNome(Ambiente& ambiente, const std::string& nuovo);

/// `CommandEliminazioneDitta`: warns, asks, has the name typed, and moves the company to the bin.
/// True when it has gone: the program then ends.
bool EliminaDitta(Ambiente& ambiente);

/// Asks, and deletes for good what is in the bin.
void SvuotaIlCestino(Ambiente& ambiente);

}  // namespace fenalto::admin
