#include "screens/ledger/GraficoConfronto.h"

#include <algorithm>

#include "core/values/FormatoImporto.h"

namespace fenalto::screens {
namespace {

constexpr const char* kNomi[] = {"gen", "feb", "mar", "apr", "mag", "giu",
                                 "lug", "ago", "set", "ott", "nov", "dic"};

enum Indice : std::size_t { kCostiA, kCostiB, kRicaviA, kRicaviB };

/// Costs red, revenues green; period A stands out from the ground more than B.
std::vector<GraficoBarre::Serie> LeSerie() {
  return {
      {GraficoConfronto::tr("costi A"), {150, 40, 30}, {245, 140, 120}},
      {GraficoConfronto::tr("costi B"), {225, 105, 80}, {190, 80, 65}},
      {GraficoConfronto::tr("ricavi A"), {20, 95, 60}, {125, 215, 160}},
      {GraficoConfronto::tr("ricavi B"), {60, 155, 105}, {55, 145, 95}},
  };
}

QString Riassunto(const ledger::MeseConfronto& mese, int decimali) {
  const auto testo = [decimali](Importo importo) {
    return QString::fromStdString(ScriviImporto(importo, decimali));
  };
  return GraficoConfronto::tr("%1\ncosti A %2, B %3\nricavi A %4, B %5")
      .arg(QString::fromLatin1(kNomi[mese.mese - 1]), testo(mese.costiA), testo(mese.costiB),
           testo(mese.ricaviA), testo(mese.ricaviB));
}

}  // namespace

GraficoConfronto::GraficoConfronto(QWidget* genitore)
    : GraficoBarre(QStringLiteral("GraficoConfronto"), genitore) {
  setAccessibleName(tr("Costi e ricavi per mese dei due periodi"));
}

void GraficoConfronto::Mostra(const std::vector<ledger::MeseConfronto>& mesi,
                              const QString& periodoA, const QString& periodoB, int decimali) {
  std::vector<Gruppo> gruppi;
  bool scritti = false;
  for (const auto& mese : mesi) {
    gruppi.push_back({QString::fromLatin1(kNomi[mese.mese - 1]),
                      {mese.costiA, mese.costiB, mese.ricaviA, mese.ricaviB},
                      Riassunto(mese, decimali)});
    const auto& valori = gruppi.back().valori;
    scritti = scritti || std::any_of(valori.begin(), valori.end(),
                                     [](Importo valore) { return !valore.Zero(); });
  }
  if (!scritti) return MostraTesto(tr("Nei due periodi non ci sono costi né ricavi"));
  GraficoBarre::Mostra(LeSerie(), std::move(gruppi),
                       {{{kCostiA, kRicaviA}, periodoA}, {{kCostiB, kRicaviB}, periodoB}});
}

}  // namespace fenalto::screens
