// Cost, fund and residual of an asset year by year: those that are written, and those to come if
// nothing but the ordinary quota follows.
#pragma once

#include <span>
#include <vector>

#include "assets/QuotaAutomatica.h"

namespace fenalto::assets {

struct PuntoCespite {
  int anno = 0;
  Importo costo;
  Importo fondo;
  Importo residuo;
  bool previsto = false;
};

/// At most `massimo` years to come. None follow a disposal, a category without rates, or an asset
/// that has years left out.
std::vector<PuntoCespite> PrevisioneCespite(const Cespite& cespite,
                                            std::span<const MovimentoCespite> righe,
                                            const AliquoteCategoria& categoria, int massimo);

}  // namespace fenalto::assets
