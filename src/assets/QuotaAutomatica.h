// What the automatic run of a year gives one asset, from its rows and its category's rates: a
// quota, or why there is none.
#pragma once

#include <span>
#include <string>

#include "assets/Cespite.h"

namespace fenalto::assets {

/// Rates of a category, in percent.
struct AliquoteCategoria {
  std::string cod;
  std::string descrizione;
  Importo ordinaria;
  Importo primoAnno;
};

enum class EsitoQuota {
  NonAncora,  ///< in use from a later year: nothing to tell
  MancaCosto,
  MancaPrimoAnno,  ///< no quota in the year in which it came into use
  MancaAnno,       ///< no quota in a year between
  GiaRegistrata,
  SenzaAliquota,  ///< the category has no rate
  Completo,       ///< nothing is left to depreciate
  Quota
};

struct QuotaAutomatica {
  EsitoQuota esito = EsitoQuota::NonAncora;
  int annoMancante = 0;
  Importo costo;
  Importo residuo;   ///< before the quota
  Importo aliquota;  ///< as shown: that of the category, or what the residual is of the cost
  Importo importo;
  bool primoAnno = false;
  bool completa = false;  ///< the quota takes all that was left

  /// The line that the run prints of the asset.
  [[nodiscard]] std::string Testo() const;
};

/// `importo` times `aliquota` percent, to the cent.
Importo QuotaDi(Importo importo, Importo aliquota);

QuotaAutomatica CalcolaQuota(const Cespite& cespite, std::span<const MovimentoCespite> righe,
                             const AliquoteCategoria& categoria, int anno);
/// The row of a quota, after the last position of `righe`.
MovimentoCespite RigaDiQuota(std::span<const MovimentoCespite> righe, const QuotaAutomatica& quota,
                             int anno);

}  // namespace fenalto::assets
