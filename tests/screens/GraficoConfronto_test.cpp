// The chart of costs and revenues: bars as long as their amounts, told apart from the ground and
// from each other on light and dark palettes.
#include "screens/ledger/GraficoConfronto.h"

#include <gtest/gtest.h>

#include <QPalette>
#include <cmath>
#include <map>

namespace fenalto::prova {
namespace {

std::vector<ledger::MeseConfronto> Mesi() {
  std::vector<ledger::MeseConfronto> mesi(12);
  for (std::size_t i = 0; i < mesi.size(); ++i) mesi[i].mese = static_cast<int>(i) + 1;
  return mesi;
}

/// Relative luminance of sRGB.
double Luminanza(QRgb colore) {
  const auto lineare = [](int canale) {
    const double c = canale / 255.0;
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * lineare(qRed(colore)) + 0.7152 * lineare(qGreen(colore)) +
         0.0722 * lineare(qBlue(colore));
}

double Contrasto(QRgb a, QRgb b) {
  const double chiaro = std::max(Luminanza(a), Luminanza(b));
  const double scuro = std::min(Luminanza(a), Luminanza(b));
  return (chiaro + 0.05) / (scuro + 0.05);
}

constexpr int kLegenda = 36;  // above this there are no bars

struct Misurato {
  QRgb fondo = 0;
  std::map<QRgb, int> alte;  ///< pixels of the colours' tallest column, those of 40 or more
};

Misurato Misura(screens::GraficoConfronto& grafico, const QColor& fondo, const QColor& testo) {
  QPalette tavolozza;
  tavolozza.setColor(QPalette::Base, fondo);
  tavolozza.setColor(QPalette::Text, testo);
  grafico.setPalette(tavolozza);
  grafico.resize(900, 300);
  const QImage immagine = grafico.grab().toImage().convertToFormat(QImage::Format_RGB32);
  Misurato misurato;
  misurato.fondo = immagine.pixel(immagine.width() - 2, 2);
  for (int x = 0; x < immagine.width(); ++x) {
    std::map<QRgb, int> colonna;
    for (int y = kLegenda; y < immagine.height(); ++y) ++colonna[immagine.pixel(x, y)];
    for (const auto& [colore, volte] : colonna) {
      if (colore == misurato.fondo || volte < 40) continue;
      misurato.alte[colore] = std::max(misurato.alte[colore], volte);
    }
  }
  return misurato;
}

}  // namespace

TEST(GraficoConfronto, BarreLungheQuantoGliImportiSuOgniTavolozza) {
  screens::GraficoConfronto grafico;
  auto mesi = Mesi();
  mesi[0].costiA = Importo::DaUnita(1000);
  mesi[0].ricaviA = Importo::DaUnita(750);
  mesi[5].costiB = Importo::DaUnita(500);
  mesi[11].ricaviB = Importo::DaUnita(-500);
  grafico.Mostra(mesi, QStringLiteral("A"), QStringLiteral("B"), 2);
  for (const auto& [fondo, testo] : {std::pair(QColor(Qt::white), QColor(Qt::black)),
                                     std::pair(QColor(30, 30, 30), QColor(Qt::white))}) {
    const Misurato misurato = Misura(grafico, fondo, testo);
    ASSERT_EQ(misurato.alte.size(), 4U) << fondo.name().toStdString();
    std::vector<int> altezze;
    for (const auto& [colore, alta] : misurato.alte) {
      altezze.push_back(alta);
      EXPECT_GE(Contrasto(colore, misurato.fondo), 3.0) << fondo.name().toStdString();
    }
    std::sort(altezze.begin(), altezze.end());
    // 500, 500, 750, 1000, to the pixels that rounding and the axis take.
    const double unita = altezze[3] / 1000.0;
    EXPECT_NEAR(altezze[0], 500 * unita, 3);
    EXPECT_NEAR(altezze[1], 500 * unita, 3);
    EXPECT_NEAR(altezze[2], 750 * unita, 3);
  }
}

TEST(GraficoConfronto, LoSchermoParlanteLeggeGliImporti) {
  screens::GraficoConfronto grafico;
  auto mesi = Mesi();
  mesi[1].ricaviB = *Importo::DaTesto("1234.5");
  grafico.Mostra(mesi, QStringLiteral("A"), QStringLiteral("B"), 2);
  EXPECT_TRUE(grafico.accessibleDescription().contains(
      QStringLiteral("feb\ncosti A 0,00, B 0,00\nricavi A 0,00, B 1.234,50")));
  grafico.Mostra(Mesi(), QStringLiteral("A"), QStringLiteral("B"), 2);
  EXPECT_EQ(grafico.accessibleDescription(),
            QStringLiteral("Nei due periodi non ci sono costi né ricavi"));
  EXPECT_FALSE(grafico.grab().isNull());
}

}  // namespace fenalto::prova
