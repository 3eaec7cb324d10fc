#include "screens/ledger/GraficoConfronto.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <cmath>

#include "core/values/FormatoImporto.h"

namespace fenalto {
namespace {

constexpr int kMesi = 12;
constexpr int kMarginePiede = 8;
constexpr int kTacche = 4;
constexpr const char* kNomi[kMesi] = {"gen", "feb", "mar", "apr", "mag", "giu",
                                      "lug", "ago", "set", "ott", "nov", "dic"};

/// Lengths of bars are the only use: amounts stay exact everywhere else.
double Lunghezza(Importo importo) {
  return static_cast<double>(importo.Decimillesimi()) / static_cast<double>(Importo::kScala);
}

std::array<Importo, 4> Valori(const MeseConfronto& mese) {
  return {mese.costiA, mese.costiB, mese.ricaviA, mese.ricaviB};
}

/// A round step (1, 2 or 5 times a power of ten) that parts the span in about kTacche.
double Passo(double ampiezza) {
  const double grezzo = ampiezza / kTacche;
  const double potenza = std::pow(10.0, std::floor(std::log10(grezzo)));
  for (const double volte : {1.0, 2.0, 5.0}) {
    if (grezzo <= volte * potenza) return volte * potenza;
  }
  return 10.0 * potenza;
}

int Ordinata(const QRect& area, double minimo, double massimo, double valore) {
  const double quota = (massimo - valore) / (massimo - minimo);
  return area.top() + static_cast<int>(std::lround(quota * area.height()));
}

}  // namespace

GraficoConfronto::GraficoConfronto(QWidget* genitore) : QWidget(genitore) {
  setObjectName(QStringLiteral("GraficoConfronto"));
  setAccessibleName(tr("Costi e ricavi per mese dei due periodi"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
}

void GraficoConfronto::Mostra(std::vector<MeseConfronto> mesi, const QString& periodoA,
                              const QString& periodoB, int decimali) {
  const bool scritti = std::any_of(mesi.begin(), mesi.end(), [](const MeseConfronto& mese) {
    const auto valori = Valori(mese);
    return std::any_of(valori.begin(), valori.end(), [](Importo v) { return !v.Zero(); });
  });
  if (!scritti) return MostraTesto(tr("Nei due periodi non ci sono costi né ricavi"));
  mesi_ = std::move(mesi);
  periodi_[0] = periodoA;
  periodi_[1] = periodoB;
  decimali_ = decimali;
  testo_.clear();
  QStringList riassunti;
  for (const auto& mese : mesi_) riassunti << Riassunto(mese);
  setAccessibleDescription(riassunti.join(QLatin1Char('\n')));
  update();
}

void GraficoConfronto::MostraTesto(const QString& testo) {
  mesi_.clear();
  testo_ = testo;
  setAccessibleDescription(testo);
  update();
}

QString GraficoConfronto::Riassunto(const MeseConfronto& mese) const {
  const auto testo = [this](Importo importo) {
    return QString::fromStdString(ScriviImporto(importo, decimali_));
  };
  return tr("%1\ncosti A %2, B %3\nricavi A %4, B %5")
      .arg(QString::fromLatin1(kNomi[mese.mese - 1]), testo(mese.costiA), testo(mese.costiB),
           testo(mese.ricaviA), testo(mese.ricaviB));
}

QColor GraficoConfronto::Colore(int serie) const {
  constexpr int kMezzo = 128;
  const bool scuro = palette().color(QPalette::Base).lightness() < kMezzo;
  // Costs red, revenues green; period A stands out from the ground more than B.
  static const QColor kChiari[kSerie] = {
      {150, 40, 30}, {225, 105, 80}, {20, 95, 60}, {60, 155, 105}};
  static const QColor kScuri[kSerie] = {
      {245, 140, 120}, {190, 80, 65}, {125, 215, 160}, {55, 145, 95}};
  return scuro ? kScuri[serie] : kChiari[serie];
}

QRect GraficoConfronto::Area() const {
  const int riga = fontMetrics().height();
  const int scala = fontMetrics().horizontalAdvance(QStringLiteral("-999.999.999 "));
  return rect().adjusted(scala + kMarginePiede, 2 * riga + kMarginePiede, -kMarginePiede,
                         -riga - kMarginePiede);
}

void GraficoConfronto::paintEvent(QPaintEvent*) {
  QPainter pittore(this);
  pittore.setPen(palette().color(QPalette::Text));
  if (mesi_.empty()) {
    pittore.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, testo_);
    return;
  }
  double minimo = 0;
  double massimo = 0;
  for (const auto& mese : mesi_) {
    for (const Importo valore : Valori(mese)) {
      minimo = std::min(minimo, Lunghezza(valore));
      massimo = std::max(massimo, Lunghezza(valore));
    }
  }
  const double passo = Passo(massimo - minimo);
  minimo = std::floor(minimo / passo) * passo;
  massimo = std::ceil(massimo / passo) * passo;
  const QRect area = Area();
  DisegnaScala(pittore, area, minimo, massimo, passo);
  DisegnaBarre(pittore, area, minimo, massimo);
  DisegnaLegenda(pittore);
}

void GraficoConfronto::DisegnaScala(QPainter& pittore, const QRect& area, double minimo,
                                    double massimo, double passo) const {
  QColor filo = palette().color(QPalette::Text);
  constexpr int kTenue = 60;
  filo.setAlpha(kTenue);
  const int riga = fontMetrics().height();
  // Steps finer than a cent aren't worth telling; those of a unit and more are whole.
  const int cifre = passo < 1 ? 2 : 0;
  const int tacche = static_cast<int>(std::lround((massimo - minimo) / passo));
  for (int i = 0; i <= tacche; ++i) {
    const double valore = minimo + passo * i;
    const int y = Ordinata(area, minimo, massimo, valore);
    pittore.setPen(filo);
    pittore.drawLine(area.left(), y, area.right(), y);
    pittore.setPen(palette().color(QPalette::Text));
    const auto importo =
        Importo::DaDecimillesimi(std::llround(valore * static_cast<double>(Importo::kScala)));
    pittore.drawText(QRect(0, y - riga / 2, area.left() - kMarginePiede, riga),
                     Qt::AlignRight | Qt::AlignVCenter,
                     QString::fromStdString(ScriviImporto(importo, cifre)));
  }
}

void GraficoConfronto::DisegnaBarre(QPainter& pittore, const QRect& area, double minimo,
                                    double massimo) const {
  const int zero = Ordinata(area, minimo, massimo, 0);
  const double largoMese = static_cast<double>(area.width()) / kMesi;
  constexpr double kBarra = 0.2;  // of a month's width; the rest is left between months
  for (const auto& mese : mesi_) {
    const double inizio = area.left() + largoMese * (mese.mese - 1);
    const auto valori = Valori(mese);
    for (int serie = 0; serie < kSerie; ++serie) {
      const double valore = Lunghezza(valori[static_cast<std::size_t>(serie)]);
      const int y = Ordinata(area, minimo, massimo, valore);
      const double x = inizio + largoMese * (kBarra / 2 + kBarra * serie);
      const QRectF barra(x, std::min(y, zero), std::max(2.0, largoMese * kBarra - 1),
                         std::abs(zero - y));
      pittore.fillRect(barra, Colore(serie));
    }
    pittore.drawText(QRectF(inizio, area.bottom() + 4, largoMese, fontMetrics().height()),
                     Qt::AlignCenter, QString::fromLatin1(kNomi[mese.mese - 1]));
  }
  pittore.drawLine(area.left(), zero, area.right(), zero);
}

void GraficoConfronto::DisegnaLegenda(QPainter& pittore) const {
  const int riga = fontMetrics().height();
  const int lato = riga * 2 / 3;
  for (int periodo = 0; periodo < 2; ++periodo) {
    int x = Area().left();
    const int y = kMarginePiede / 2 + riga * periodo;
    const auto scrivi = [&](const QString& testo) {
      pittore.drawText(x, y + fontMetrics().ascent(), testo);
      x += fontMetrics().horizontalAdvance(testo) + riga;
    };
    const QString lettera = periodo == 0 ? QStringLiteral("A") : QStringLiteral("B");
    for (const int serie : {kCostiA + periodo, kRicaviA + periodo}) {
      pittore.fillRect(x, y + (riga - lato) / 2, lato, lato, Colore(serie));
      x += lato + lato / 2;
      scrivi((serie < kRicaviA ? tr("costi ") : tr("ricavi ")) + lettera);
    }
    scrivi(periodi_[periodo]);
  }
}

bool GraficoConfronto::event(QEvent* evento) {
  if (evento->type() != QEvent::ToolTip) return QWidget::event(evento);
  const auto* aiuto = static_cast<QHelpEvent*>(evento);
  const QRect area = Area();
  const int mese = area.width() <= 0 || aiuto->pos().x() < area.left()
                       ? -1
                       : (aiuto->pos().x() - area.left()) * kMesi / area.width();
  if (mese < 0 || mese >= static_cast<int>(mesi_.size())) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(aiuto->globalPos(), Riassunto(mesi_[static_cast<std::size_t>(mese)]), this);
  }
  return true;
}

}  // namespace fenalto
