// What the VAT register costs beside the bare engine, and the memory it takes.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// Those of `nomi`, on companies of their own: the register of a year from its request to its text,
/// to the bare engine's query of the same rows in the same order; and the memory of that run on a
/// register ten times as long, in processes of their own.
std::vector<Rapporto> MisureRegistro(const OpzioniAmbiente& opzioni, const Nomi& nomi);

/// Prints the register of a company to the text `file`, and tells the memory used in
/// `file`.megabyte.
void StampaRegistri(const OpzioniAmbiente& opzioni, const std::string& ditta,
                    const std::filesystem::path& file);

}  // namespace fenalto::banco
