// The code of an account, "master.sub": how it is taken apart, and which one comes next.
#pragma once

#include <string>

#include "core/session/Ambiente.h"

namespace fenalto::ledger {

struct CodiceConto {
  std::string mastro;
  std::string contox;
};

/// Takes a code apart at its first point that follows a master's code; at its first point when no
/// master fits.
CodiceConto DividiCodiceConto(Ambiente& ambiente, const std::string& codice);

/// Pattern of LIKE that the codes of a master's accounts meet: "17.*" for "17", so that master 17
/// does not take "170.001".
std::string ModelloConti(const std::string& mastro);

/// Whether a master has accounts.
bool HaConti(Ambiente& ambiente, const std::string& mastro);

/// The sub-code that follows the highest numeric one of a master, as wide as that ("004" after
/// "003"), in tens where all go by tens ("030" after "010" and "020"). When the width is used up,
/// the lowest free one; empty when none is free. "001" for a master without accounts.
std::string ProssimoContox(Ambiente& ambiente, const std::string& mastro);

}  // namespace fenalto::ledger
