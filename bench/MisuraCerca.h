// The search box: a letter typed over a company's functions, accounts and 20,000 parties.
#pragma once

#include "bench/Misura.h"

namespace fenalto::banco {

/// `cerca`: words of one to five letters through the index, against the same bytes gone through for
/// the same words by the library's own search, nothing ranked.
Rapporto MisuraCerca();

}  // namespace fenalto::banco
