// The rows that come after one, in the order of its keys: the next page of a list.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/values/Valore.h"

namespace fenalto::sql {

/// Condition of the rows after that with `valori` in the columns `chiavi`, ascending; as many of
/// one as of the other, one at least. The first column is bounded apart, so that an index can begin
/// there. To be joined with others by AND.
std::string CriterioDopo(const std::vector<std::string_view>& chiavi,
                         const std::vector<Valore>& valori);

}  // namespace fenalto::sql
