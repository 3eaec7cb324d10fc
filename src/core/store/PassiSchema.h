// The numbered steps of a database's schema.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/values/Esito.h"

struct sqlite3;

namespace fenalto {

/// Tells this program's databases from any other (PRAGMA application_id).
inline constexpr int kIdApplicazione = 0x46656E61;

struct PassoSchema {
  int numero = 0;
  std::filesystem::path file;
};

/// Steps of a folder in their order. An error when there are none, or when one is missing or
/// double.
Esito<std::vector<PassoSchema>> LeggiPassi(const std::filesystem::path& cartella);

/// Runs the steps after `daPasso` on the main database of a connection and writes the last one's
/// number; the caller holds the transaction. Throws ErroreArchivio, naming `file` and the step.
void EseguiPassi(sqlite3* connessione, const std::vector<PassoSchema>& passi, int daPasso,
                 const std::filesystem::path& file);

}  // namespace fenalto
