// Months of due dates.
#pragma once

#include <string>

#include "core/values/Data.h"

namespace fenalto::duedates {

/// A month, as year * 12 + month - 1.
using MeseScadenze = int;
MeseScadenze MeseDi(Data data);
/// "marzo 2024"; "senza data" for that of the null date.
std::string NomeMese(MeseScadenze mese);

}  // namespace fenalto::duedates
