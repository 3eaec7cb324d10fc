// What the windows cost: start, selector over many registrations, memory.
#pragma once

#include <vector>

#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// Start of the program and its memory, in processes of their own, on the company `grande`.
std::vector<Rapporto> MisureProcessi(const OpzioniAmbiente& opzioni, const std::string& grande);
/// Opening `Movimenti` with the first page of its selector, `grande` to `piccola`. Needs a
/// QApplication.
Rapporto MisuraSelettore(const OpzioniAmbiente& opzioni, const std::string& grande,
                         const std::string& piccola);
/// Opens the company and uses `Movimenti` as a person would; for the measure of memory.
void UsaMovimenti(const OpzioniAmbiente& opzioni, const std::string& ditta);

}  // namespace fenalto::banco
