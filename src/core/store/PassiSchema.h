// The numbered steps of a database's schema.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/store/engine/Connessione.h"
#include "core/values/Esito.h"

namespace fenalto {

struct PassoSchema {
  int numero = 0;
  std::filesystem::path file;
};

/// Steps of a folder in their order. An error when there are none, or when one is missing or
/// double.
Esito<std::vector<PassoSchema>> LeggiPassi(const std::filesystem::path& cartella);

/// Runs the steps after `daPasso` on a database, the only one of its connection, and writes the
/// last one's number; the caller holds the transaction. Throws ErroreArchivio, naming the step.
void EseguiPassi(engine::Connessione& connessione, const std::string& base,
                 const std::vector<PassoSchema>& passi, int daPasso);

}  // namespace fenalto
