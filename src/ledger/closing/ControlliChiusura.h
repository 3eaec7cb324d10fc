// What to look at before a year is closed, each finding with where it is mended.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/values/Rinvio.h"

namespace fenalto::ledger {

struct RilievoChiusura {
  std::string controllo;  ///< which check
  std::string che;        ///< what was found: number, code, period
  std::string dettaglio;
  bool grave = false;  ///< the closing would leave something behind
  Rinvio rinvio;       ///< where it is mended; empty for nowhere
};

/// All findings for the selected year, the grave ones first. Empty when all is well.
std::vector<RilievoChiusura> ControllaPrimaDiChiudere(Ambiente& ambiente);

}  // namespace fenalto::ledger
