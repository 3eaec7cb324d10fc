// Which products a function over the archive looks at.
#pragma once

#include <string>

#include "core/session/Ambiente.h"

namespace fenalto::warehouse {

struct SceltaProdotti {
  std::string daCodiceRiga;  ///< empty from the first
  std::string aaCodiceRiga;  ///< empty to the last
  std::string soloCategoriaMag;
  std::string soloCategoriaMag2;
  std::string soloGruppoMag;
  std::string soloGruppoMag2;
  std::string soloFornitore;  ///< who has a row on the product
};

/// Condition on `CodiciRiga`; never empty.
std::string CondizioneProdotti(const SceltaProdotti& scelta);
/// "Solo Categoria X1 Solo Categoria 2 ...", what isn't the range.
std::string FiltriProdotti(const SceltaProdotti& scelta);
/// The range and the filters, for a heading.
std::string ScrittaProdotti(const SceltaProdotti& scelta);

}  // namespace fenalto::warehouse
