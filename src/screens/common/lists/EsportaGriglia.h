// A grid written to a spreadsheet file.
#pragma once

#include "core/reports/Foglio.h"
#include "core/session/Ambiente.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {

/// The rows that the grid holds, typed as its columns are, with company, year, day and title above.
/// Hidden columns stay out.
reports::Foglio FoglioDi(Griglia& griglia, Ambiente& ambiente, const std::string& titolo);

/// Asks for the file and writes the grid there, rows not read so far included; what goes wrong is
/// told. False when given up or failed.
bool EsportaGriglia(Griglia& griglia, Ambiente& ambiente, const std::string& titolo);

/// Writes a report's sheet where the user has chosen; tells the file's name, or what went wrong.
void ScriviFoglio(const reports::Foglio& foglio, const SceltaUscita& scelta, Dialoghi& dialoghi);

}  // namespace fenalto::screens
