// The rotating backup of a company's two databases, with the engine's own copy.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/values/Data.h"
#include "core/values/Esito.h"

namespace fenalto {

/// Where the two databases of a company are.
struct PercorsiArchivi {
  std::filesystem::path tessarc;
  std::filesystem::path scadenzario;
};

/// Number of backups kept.
inline constexpr int kCopieTenute = 10;

/// Whether `cartella` (the company's folder `Copie`) has no backup of that day yet.
bool CopiaDovuta(const std::filesystem::path& cartella, Data oggi);

/// Copies both databases as they stand at one instant (readers and writers of other stations go on,
/// writers wait for the copy) into `cartella/AAAA-MM-GG`, opens and checks the copies, then removes
/// all but the newest kCopieTenute. Safe on a thread of its own. Returns the folder made; on error
/// says what failed and leaves no half copy.
Esito<std::filesystem::path> EseguiCopia(const PercorsiArchivi& percorsi,
                                         const std::filesystem::path& cartella, Data oggi);

/// The same into `cartella/nome`, which must not exist yet, and nothing is removed.
Esito<std::filesystem::path> EseguiCopiaDetta(const PercorsiArchivi& percorsi,
                                              const std::filesystem::path& cartella,
                                              const std::string& nome);

/// Copies of the days found, newest first.
std::vector<std::filesystem::path> CopieEsistenti(const std::filesystem::path& cartella);

/// Where the two databases of a company are in a copy of it.
PercorsiArchivi ArchiviDellaCopia(const std::filesystem::path& copia,
                                  const PercorsiArchivi& percorsi);

/// Looks at every page of both databases of a copy: whole, and of this program.
Esito<bool> ControllaCopia(const PercorsiArchivi& copia);

/// Copies one database file with the engine to `destinazione` (which must not exist) and checks the
/// copy. Used before a schema step.
Esito<bool> CopiaArchivio(const std::filesystem::path& origine,
                          const std::filesystem::path& destinazione);

}  // namespace fenalto
