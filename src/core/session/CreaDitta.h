// A new company from the model company in the program's data.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto {

struct AnnoDitta {
  int anno = 0;
  bool euro = true;
  bool ivaTrimestrale = false;
};

/// Makes the company's folder with both databases filled from `modello/`, `Immagini`, `Documenti`,
/// the rows of `Anni` and the settings file; nothing is left when a step fails. The name becomes
/// the default company when `predefinita`.
Esito<bool> CreaDittaDaModello(const OpzioniAmbiente& opzioni, const std::string& nome,
                               const std::vector<AnnoDitta>& anni, bool predefinita);

}  // namespace fenalto
