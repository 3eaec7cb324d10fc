// What the head of a registration repeats of its rows.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::admin {

/// One side of a head, as the rows on it say.
struct LatoArticolo {
  std::string cfp;
  std::string conto;  ///< the only account, "DIVERSI" for several
  bool operator==(const LatoArticolo&) const = default;
};

/// A head that repeats something else than its rows say.
struct TestataDaRifare {
  std::int64_t id = 0;
  std::int64_t numDoc = 0;
  LatoArticolo dare;
  LatoArticolo avere;
};

/// Heads on no VAT register, in order of year and number, that need it; those without rows are left
/// alone. `passo` is called for each registration, and stops it when false.
std::vector<TestataDaRifare> TestateDaRifare(Archivio& tessarc, const std::function<bool()>& passo);

}  // namespace fenalto::admin
