#include "assets/PrevisioneCespite.h"

namespace fenalto::assets {

std::vector<PuntoCespite> PrevisioneCespite(const Cespite& cespite,
                                            std::span<const MovimentoCespite> righe,
                                            const AliquoteCategoria& categoria, int massimo) {
  std::vector<PuntoCespite> punti;
  const SchedaCespite scheda = CalcolaScheda(righe);
  for (const AnnoCespite& anno : scheda.anni) {
    punti.push_back({anno.anno, anno.costo, anno.accantonato, anno.residuo});
  }
  if (scheda.Dismesso() || cespite.dal.Nulla()) return punti;
  // The run itself tells what each year would get.
  std::vector<MovimentoCespite> future(righe.begin(), righe.end());
  for (int fatti = 0, anno = scheda.UltimoAnno(); fatti < massimo && anno != 0; ++anno) {
    const QuotaAutomatica quota = CalcolaQuota(cespite, future, categoria, anno);
    if (quota.esito == EsitoQuota::GiaRegistrata) continue;
    if (quota.esito != EsitoQuota::Quota) break;
    future.push_back(RigaDiQuota(future, quota, anno));
    const SchedaCespite dopo = CalcolaScheda(future);
    const PuntoCespite punto{anno, dopo.Costo(), dopo.Fondo(), dopo.Residuo(), true};
    // The last year may have its cost and not yet its quota.
    if (!punti.empty() && punti.back().anno == anno) {
      punti.back() = punto;
    } else {
      punti.push_back(punto);
    }
    ++fatti;
  }
  return punti;
}

}  // namespace fenalto::assets
