#include "screens/common/reports/GraficoBarre.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "core/values/FormatoImporto.h"

namespace fenalto::screens {
namespace {

constexpr int kMarginePiede = 8;
constexpr int kTacche = 4;

/// Lengths of bars are the only use: amounts stay exact everywhere else.
double Lunghezza(Importo importo) {
  return static_cast<double>(importo.Decimillesimi()) / static_cast<double>(Importo::kScala);
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

GraficoBarre::GraficoBarre(const QString& nome, QWidget* genitore) : QWidget(genitore) {
  setObjectName(nome);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
}

void GraficoBarre::Mostra(std::vector<Serie> serie, std::vector<Gruppo> gruppi,
                          std::vector<RigaLegenda> legenda) {
  serie_ = std::move(serie);
  gruppi_ = std::move(gruppi);
  legenda_ = std::move(legenda);
  testo_.clear();
  QStringList riassunti;
  for (const auto& gruppo : gruppi_) riassunti << gruppo.riassunto;
  setAccessibleDescription(riassunti.join(QLatin1Char('\n')));
  update();
}

void GraficoBarre::MostraTesto(const QString& testo) {
  gruppi_.clear();
  testo_ = testo;
  setAccessibleDescription(testo);
  update();
}

QColor GraficoBarre::Colore(std::size_t serie) const {
  constexpr int kMezzo = 128;
  const bool scuro = palette().color(QPalette::Base).lightness() < kMezzo;
  return scuro ? serie_[serie].scuro : serie_[serie].chiaro;
}

QRect GraficoBarre::Area() const {
  const int riga = fontMetrics().height();
  const int scala = fontMetrics().horizontalAdvance(QStringLiteral("-999.999.999 "));
  const int sopra = static_cast<int>(legenda_.size()) * riga + kMarginePiede;
  return rect().adjusted(scala + kMarginePiede, sopra, -kMarginePiede, -riga - kMarginePiede);
}

void GraficoBarre::paintEvent(QPaintEvent*) {
  QPainter pittore(this);
  pittore.setPen(palette().color(QPalette::Text));
  double minimo = 0;
  double massimo = 0;
  for (const auto& gruppo : gruppi_) {
    for (const Importo valore : gruppo.valori) {
      minimo = std::min(minimo, Lunghezza(valore));
      massimo = std::max(massimo, Lunghezza(valore));
    }
  }
  // Without an amount there is no scale to draw.
  if (minimo == massimo) {
    pittore.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, testo_);
    return;
  }
  const double passo = Passo(massimo - minimo);
  minimo = std::floor(minimo / passo) * passo;
  massimo = std::ceil(massimo / passo) * passo;
  const QRect area = Area();
  DisegnaScala(pittore, area, minimo, massimo, passo);
  DisegnaBarre(pittore, area, minimo, massimo);
  DisegnaLegenda(pittore);
}

void GraficoBarre::DisegnaScala(QPainter& pittore, const QRect& area, double minimo, double massimo,
                                double passo) const {
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

void GraficoBarre::DisegnaBarre(QPainter& pittore, const QRect& area, double minimo,
                                double massimo) const {
  const int zero = Ordinata(area, minimo, massimo, 0);
  const double largo = static_cast<double>(area.width()) / static_cast<double>(gruppi_.size());
  // A bar's share of a group; that of one bar more is left between groups.
  const double quota = 1.0 / static_cast<double>(serie_.size() + 1);
  for (std::size_t indice = 0; indice < gruppi_.size(); ++indice) {
    const auto& gruppo = gruppi_[indice];
    const double inizio = area.left() + largo * static_cast<double>(indice);
    for (std::size_t serie = 0; serie < gruppo.valori.size(); ++serie) {
      const int y = Ordinata(area, minimo, massimo, Lunghezza(gruppo.valori[serie]));
      const double x = inizio + largo * quota * (0.5 + static_cast<double>(serie));
      const QRectF barra(x, std::min(y, zero), std::max(2.0, largo * quota - 1),
                         std::abs(zero - y));
      pittore.fillRect(barra, Colore(serie));
    }
    pittore.drawText(QRectF(inizio, area.bottom() + 4, largo, fontMetrics().height()),
                     Qt::AlignCenter, gruppo.nome);
  }
  pittore.drawLine(area.left(), zero, area.right(), zero);
}

void GraficoBarre::DisegnaLegenda(QPainter& pittore) const {
  const int riga = fontMetrics().height();
  const int lato = riga * 2 / 3;
  int y = kMarginePiede / 2;
  for (const auto& voce : legenda_) {
    int x = Area().left();
    const auto scrivi = [&](const QString& testo) {
      pittore.drawText(x, y + fontMetrics().ascent(), testo);
      x += fontMetrics().horizontalAdvance(testo) + riga;
    };
    for (const std::size_t serie : voce.serie) {
      pittore.fillRect(x, y + (riga - lato) / 2, lato, lato, Colore(serie));
      x += lato + lato / 2;
      scrivi(serie_[serie].nome);
    }
    scrivi(voce.testo);
    y += riga;
  }
}

bool GraficoBarre::event(QEvent* evento) {
  if (evento->type() != QEvent::ToolTip) return QWidget::event(evento);
  const auto* aiuto = static_cast<QHelpEvent*>(evento);
  const QRect area = Area();
  const int quanti = static_cast<int>(gruppi_.size());
  const int gruppo = area.width() <= 0 || aiuto->pos().x() < area.left()
                         ? -1
                         : (aiuto->pos().x() - area.left()) * quanti / area.width();
  if (gruppo < 0 || gruppo >= quanti) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(aiuto->globalPos(), gruppi_[static_cast<std::size_t>(gruppo)].riassunto,
                       this);
  }
  return true;
}

}  // namespace fenalto::screens
