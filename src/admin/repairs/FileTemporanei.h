// Files that work under way leaves behind when it is broken off.
#pragma once

#include "core/session/Ambiente.h"

namespace fenalto::admin {

/// The folder of temporary files, as the variable `Temp` or the system names it.
std::filesystem::path CartellaTemporanea();

/// Erases scratch files (`x*.mdb`) of the temporary folder and of the company's, and what copies
/// that were killed have left; databases of a company and copies are never touched.
/// (`Command2`)
void EliminaTemporanei(Ambiente& ambiente);

}  // namespace fenalto::admin
