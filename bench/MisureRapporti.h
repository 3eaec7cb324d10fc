// What the reports cost beside the bare engine and the bare writer of PDF.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "bench/DialoghiMuti.h"
#include "bench/Misura.h"
#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// Those of `nomi` that are taken in this process. `ambiente` has the generated company open and
/// speaks to `dialoghi`; `nuda` is its plain copy. Needs a QApplication.
std::vector<Rapporto> MisureRapporti(Ambiente& ambiente, DialoghiMuti& dialoghi,
                                     const std::filesystem::path& nuda, const Nomi& nomi);

/// Memory of the journals of all years of `grande` to that of `decima`, in processes of their own.
Rapporto MisuraMemoriaGiornale(const OpzioniAmbiente& opzioni, const std::string& grande,
                               const std::string& decima);
/// Prints the journal of each year of a company to the PDF `file`, and tells the memory used in
/// `file`.megabyte.
void StampaGiornali(const OpzioniAmbiente& opzioni, const std::string& ditta,
                    const std::filesystem::path& file);

}  // namespace fenalto::banco
