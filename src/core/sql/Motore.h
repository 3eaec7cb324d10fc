// What the emitted SQL needs of the engine: the collation FENALTO (order of text without case) and
// the dialect's functions.
#pragma once

struct sqlite3;

namespace fenalto::sql {

/// Name of the collation that text columns are declared with.
inline constexpr const char* kCollazione = "FENALTO";

/// Registers collation and functions on a connection; throws std::runtime_error when refused.
void RegistraMotore(sqlite3* connessione);

}  // namespace fenalto::sql
