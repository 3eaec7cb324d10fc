// Stock, costs and the warehouse report, against bare statements on the same tables.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

std::vector<Rapporto> MisureMagazzino(const OpzioniAmbiente& opzioni, const Nomi& nomi);

/// Prints the warehouse report of a generated company by code into a PDF, and the memory that it
/// took beside it: what the measure of memory runs as a program of its own.
void StampaSituazione(const OpzioniAmbiente& opzioni, const std::string& ditta,
                      const std::filesystem::path& file);

}  // namespace fenalto::banco
