// What the embedded engine writes in its own way.
#pragma once

#include "core/sql/Dialetto.h"

namespace fenalto::engine::sqlite {

/// Name of the collation that text columns are declared with.
inline constexpr const char* kCollazione = "FENALTO";

const sql::Dialetto& DialettoSqlite();

}  // namespace fenalto::engine::sqlite
