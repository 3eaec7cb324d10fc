// Rows written field by field, with bound values and kept statements.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/store/NucleoBasi.h"

namespace fenalto {

/// Index of a column in its table and the value for it.
using CampoScritto = std::pair<std::size_t, Valore>;

/// Index of a table's column; throws ErroreArchivio on an unknown or hidden one.
std::size_t ColonnaScrivibile(const TabellaArchivio& tabella, std::string_view nome);
/// The value as a column keeps it: converted to its type, Null as the empty value where the column
/// has no Null. Throws ErroreArchivio when it can't be.
Valore PerColonna(const TabellaArchivio& tabella, std::size_t colonna, const Valore& valore);

/// " WHERE" of the row whose identity is bound to that parameter.
std::string DoveRiga(const sql::Dialetto& dialetto, std::size_t parametro);

/// Adds a row: columns not named take their default; returns its identity.
std::int64_t InserisciRiga(DatiArchivio& archivio, const TabellaArchivio& tabella,
                           const std::vector<CampoScritto>& campi);
/// Changes the row of that identity; returns whether it is still there.
bool ModificaRiga(DatiArchivio& archivio, const TabellaArchivio& tabella,
                  const std::vector<CampoScritto>& campi, std::int64_t identita);
/// Deletes the row of that identity; returns whether it was there.
bool EliminaRiga(DatiArchivio& archivio, const TabellaArchivio& tabella, std::int64_t identita);

}  // namespace fenalto
