#include "screens/assets/GraficoCespite.h"

#include <algorithm>

#include "core/values/FormatoImporto.h"

namespace fenalto::screens {

GraficoCespite::GraficoCespite(QWidget* genitore)
    : GraficoBarre(QStringLiteral("GraficoCespite"), genitore) {
  setAccessibleName(tr("Costo, fondo e residuo del cespite anno per anno"));
}

void GraficoCespite::Mostra(const std::vector<assets::PuntoCespite>& punti) {
  if (punti.empty()) return MostraTesto(tr("Senza il costo originario non c'è nulla da mostrare"));
  const auto testo = [](Importo importo) {
    return QString::fromStdString(ScriviImporto(importo, 2));
  };
  std::vector<Gruppo> gruppi;
  for (const assets::PuntoCespite& punto : punti) {
    const QString anno = QString::number(punto.anno);
    gruppi.push_back({punto.previsto ? QStringLiteral("(%1)").arg(anno) : anno,
                      {punto.costo, punto.fondo, punto.residuo},
                      tr("%1%2\ncosto %3\nfondo %4\nresiduo %5")
                          .arg(anno, punto.previsto ? tr(", previsto") : QString(),
                               testo(punto.costo), testo(punto.fondo), testo(punto.residuo))});
  }
  const bool previsti = std::ranges::any_of(punti, &assets::PuntoCespite::previsto);
  GraficoBarre::Mostra({{tr("costo"), {70, 90, 130}, {150, 170, 210}},
                        {tr("fondo"), {195, 110, 40}, {235, 160, 100}},
                        {tr("residuo"), {30, 120, 90}, {120, 205, 165}}},
                       std::move(gruppi),
                       {{{0, 1, 2}, previsti ? tr("(anno): previsto") : QString()}});
}

}  // namespace fenalto::screens
