// What the emitted SQL needs of the engine: the collation FENALTO (order of text without case) and
// the functions of core/sql.
#pragma once

struct sqlite3;

namespace fenalto::engine::sqlite {

/// Registers collation and functions on a connection; throws std::runtime_error when refused.
void RegistraMotore(sqlite3* connessione);

}  // namespace fenalto::engine::sqlite
