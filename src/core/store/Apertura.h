// What is looked at before a company's databases are used, and how their schema is brought up to
// date.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/store/BasiDati.h"
#include "core/store/PassiSchema.h"
#include "core/store/engine/Motore.h"

namespace fenalto {

class NucleoBasi;

/// Schema steps of both databases.
struct PassiCompleti {
  std::vector<PassoSchema> tessarc;
  std::vector<PassoSchema> scadenzario;
};
Esito<PassiCompleti> LeggiPassiCompleti(const engine::Motore& motore,
                                        const std::filesystem::path& cartellaSchema);

/// Which engine holds the databases at that place.
const engine::Motore& MotoreDi(const PercorsiArchivi& percorsi);

/// Makes a database at the newest step; throws ErroreArchivio.
void CreaArchivio(const engine::Motore& motore, const engine::Base& base,
                  const std::vector<PassoSchema>& passi, const engine::Opzioni& opzioni);

/// Whether a step is missing in the open databases. Throws ErroreArchivio when one isn't this
/// program's, is newer than the program, or can't be written.
bool DaAggiornare(const NucleoBasi& nucleo, const PassiCompleti& passi);

/// Copies both databases, then brings each to the newest step in one transaction; they must not be
/// open here. Throws ErroreArchivio; what isn't brought up to date is as it was.
void AggiornaSchema(const engine::Motore& motore, const PercorsiArchivi& percorsi,
                    const PassiCompleti& passi, const OpzioniApertura& opzioni);

}  // namespace fenalto
