// Drops the joins that only read what a table mirrors.
//
// A table may keep beside each row some columns of the row of another table that has the same key
// (its `Specchio`). A join of the two on exactly that key, of which the statement uses only the key
// and mirrored columns, gives the same rows without the other table.
#pragma once

#include "core/sql/Albero.h"

namespace fenalto::sql {

/// Rewrites a bound SELECT in place; leaves it alone when nothing can be dropped.
void EliminaGiunzioni(Selezione& selezione);

}  // namespace fenalto::sql
