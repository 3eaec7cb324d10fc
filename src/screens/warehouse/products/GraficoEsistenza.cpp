#include "screens/warehouse/products/GraficoEsistenza.h"

#include <algorithm>
#include <array>

#include "core/values/FormatoImporto.h"

namespace fenalto::screens {

GraficoEsistenza::GraficoEsistenza(QWidget* genitore)
    : GraficoBarre(QStringLiteral("GraficoEsistenza"), genitore) {
  setAccessibleName(tr("Esistenza del prodotto alla fine di ogni mese"));
}

void GraficoEsistenza::Mostra(const std::vector<warehouse::PuntoEsistenza>& punti, int decimali) {
  static const std::array kMesi = {tr("gen"), tr("feb"), tr("mar"), tr("apr"),
                                   tr("mag"), tr("giu"), tr("lug"), tr("ago"),
                                   tr("set"), tr("ott"), tr("nov"), tr("dic")};
  const bool vuoto = std::ranges::all_of(
      punti, [](const warehouse::PuntoEsistenza& punto) { return punto.esistenza.Zero(); });
  if (vuoto) return MostraTesto(tr("nessuna esistenza negli ultimi dodici mesi"));
  std::vector<Gruppo> gruppi;
  for (const warehouse::PuntoEsistenza& punto : punti) {
    gruppi.push_back({kMesi.at(static_cast<std::size_t>(punto.fineMese.Mese() - 1)),
                      {punto.esistenza},
                      tr("al %1\nesistenza %2")
                          .arg(QString::fromStdString(punto.fineMese.Testo()),
                               QString::fromStdString(ScriviImporto(punto.esistenza, decimali)))});
  }
  GraficoBarre::Mostra({{tr("esistenza a fine mese"), {70, 90, 130}, {150, 170, 210}}},
                       std::move(gruppi), {{{0}, {}}});
}

}  // namespace fenalto::screens
