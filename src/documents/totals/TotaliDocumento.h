// What a document comes to: VAT once a VAT code, on what the rows of that code come to, never row
// by row. The same arithmetic on screen and on paper.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/values/Importo.h"

namespace fenalto::documents {

/// Rows of one VAT code together.
struct GruppoIva {
  std::string codIva;
  Importo importo;  ///< of its rows
  Importo perc;
};

/// The same, taxed.
struct GruppoTassato {
  GruppoIva gruppo;
  Importo imponibile;  ///< after cash discount, or out of prices with VAT
  Importo iva;
  Importo scontoCassa;  ///< what the discount takes off
};

struct TotaliDocumento {
  std::vector<GruppoTassato> gruppi;
  Importo totImponibile;
  Importo totIva;
  Importo totFat;
};

struct RegolaTotali {
  bool prezziIvati = false;  ///< rows hold VAT; then no cash discount is given
  Importo scontoCassa = {};  ///< percent
  bool euro = true;
};

/// Throws FuoriCampo when a total doesn't fit an amount, and std::domain_error on prices with VAT
/// of a rate of -100.
TotaliDocumento CalcolaTotali(std::span<const GruppoIva> gruppi, const RegolaTotali& regola);

}  // namespace fenalto::documents
