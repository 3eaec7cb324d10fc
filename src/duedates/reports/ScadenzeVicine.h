// What is overdue and what falls due in the next days, in two figures a class.
#pragma once

#include <cstdint>
#include <string>

#include "core/session/Ambiente.h"

namespace fenalto::duedates {

/// Days that are looked ahead, that of today among them.
inline constexpr int kGiorniVicini = 7;

struct GruppoScadenze {
  std::int64_t quante = 0;
  Importo importo;  ///< still to be settled; deposits are taken off
};

struct ScadenzeVicine {
  Data finoA;
  GruppoScadenze scadute;  ///< before today, or without a day
  GruppoScadenze vicine;   ///< from today to `finoA`
};

/// Of customers ("C") or suppliers ("F").
ScadenzeVicine LeggiScadenzeVicine(Ambiente& ambiente, const std::string& cfp, Data oggi);

}  // namespace fenalto::duedates
