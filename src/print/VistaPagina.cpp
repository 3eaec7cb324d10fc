#include "print/VistaPagina.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "print/TestoPagina.h"

namespace fenalto::print {
namespace {

constexpr int kBordo = 12;  // pixels around the page
constexpr double kZoomMinimo = 0.1;
constexpr double kZoomMassimo = 8;
const QColor kCarta = Qt::white;
const QColor kTrovato(255, 225, 90);
const QColor kTrovatoCorrente(255, 150, 40);
const QColor kScelto(60, 120, 215, 70);

}  // namespace

VistaPagina::VistaPagina(Pittore& pittore, QWidget* genitore)
    : QAbstractScrollArea(genitore), pittore_(pittore) {
  setObjectName(QStringLiteral("Pagina"));
  setFocusPolicy(Qt::StrongFocus);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  viewport()->setMouseTracking(true);
  viewport()->setBackgroundRole(QPalette::Mid);
}

void VistaPagina::Mostra(reports::Pagina pagina, int totale) {
  pagina_ = std::move(pagina);
  totale_ = totale;
  segni_.clear();
  corrente_ = -1;
  scelta_ = {};
  Scorrimento();
  viewport()->update();
}

void VistaPagina::Segna(std::vector<Segno> segni, int corrente) {
  segni_ = std::move(segni);
  corrente_ = corrente;
  MostraSegno();
  viewport()->update();
}

void VistaPagina::MostraSegno() {
  if (corrente_ < 0 || corrente_ >= static_cast<int>(segni_.size())) return;
  const auto& segno = segni_[static_cast<std::size_t>(corrente_)];
  const auto area = pittore_.Area(pagina_.elementi[static_cast<std::size_t>(segno.elemento)],
                                  totale_, segno.da, segno.quanti);
  const QRectF vetro(SulVetro(area.topLeft()), SulVetro(area.bottomRight()));
  const auto porta = [](QScrollBar* barra, double da, double a, int misura) {
    if (da < 0 || a > misura) {
      barra->setValue(barra->value() + static_cast<int>((da + a) / 2 - misura / 2.0));
    }
  };
  porta(verticalScrollBar(), vetro.top(), vetro.bottom(), viewport()->height());
  porta(horizontalScrollBar(), vetro.left(), vetro.right(), viewport()->width());
}

double VistaPagina::Zoom() const {
  if (!adatta_) return zoom_;
  const double larga = std::max(50, viewport()->width() - 2 * kBordo);
  return std::clamp(larga / (pagina_.formato.larghezza / kPollice * logicalDpiX()), kZoomMinimo,
                    kZoomMassimo);
}

double VistaPagina::Scala() const {
  return Zoom() * logicalDpiX() / kPollice;
}

void VistaPagina::Ingrandisci(double zoom) {
  const double prima = Scala();
  const double centro = verticalScrollBar()->value() + viewport()->height() / 2.0;
  adatta_ = false;
  zoom_ = std::clamp(zoom, kZoomMinimo, kZoomMassimo);
  Scorrimento();
  verticalScrollBar()->setValue(
      static_cast<int>(centro * Scala() / prima - viewport()->height() / 2.0));
  viewport()->update();
  emit ZoomCambiato();
}

void VistaPagina::AdattaLarghezza() {
  adatta_ = true;
  Scorrimento();
  viewport()->update();
  emit ZoomCambiato();
}

void VistaPagina::Scorrimento() {
  const double scala = Scala();
  const int larga = static_cast<int>(std::ceil(pagina_.formato.larghezza * scala)) + 2 * kBordo;
  const int alta = static_cast<int>(std::ceil(pagina_.formato.altezza * scala)) + 2 * kBordo;
  const auto imposta = [](QScrollBar* barra, int contenuto, int vista) {
    barra->setRange(0, std::max(0, contenuto - vista));
    barra->setPageStep(vista);
    barra->setSingleStep(40);
  };
  imposta(verticalScrollBar(), alta, viewport()->height());
  imposta(horizontalScrollBar(), adatta_ ? 0 : larga, viewport()->width());
}

void VistaPagina::MostraInizio(bool inizio) {
  auto* barra = verticalScrollBar();
  barra->setValue(inizio ? barra->minimum() : barra->maximum());
}

QPointF VistaPagina::Origine() const {
  const double larga = pagina_.formato.larghezza * Scala();
  const double x = larga + 2 * kBordo <= viewport()->width()
                       ? (viewport()->width() - larga) / 2
                       : kBordo - horizontalScrollBar()->value();
  return {x, static_cast<double>(kBordo - verticalScrollBar()->value())};
}

QPointF VistaPagina::SulVetro(const QPointF& punto) const {
  return Origine() + punto * Scala();
}

QPointF VistaPagina::SullaPagina(const QPointF& punto) const {
  return (punto - Origine()) / Scala();
}

const reports::Elemento* VistaPagina::ElementoIn(const QPointF& punto) const {
  for (auto uno = pagina_.elementi.rbegin(); uno != pagina_.elementi.rend(); ++uno) {
    if (RinvioDi(*uno) != nullptr && pittore_.Area(*uno, totale_).contains(punto)) return &*uno;
  }
  return nullptr;
}

QString VistaPagina::TestoScelto() const {
  return TestoDi(pittore_, pagina_, totale_, scelta_);
}

void VistaPagina::paintEvent(QPaintEvent*) {
  QPainter tela(viewport());
  const double scala = Scala();
  const QRectF foglio(Origine(),
                      QSizeF(pagina_.formato.larghezza, pagina_.formato.altezza) * scala);
  tela.fillRect(foglio.translated(3, 3), palette().color(QPalette::Dark));
  tela.fillRect(foglio, kCarta);
  tela.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                      QPainter::SmoothPixmapTransform);
  tela.setClipRect(foglio);
  tela.translate(Origine());
  for (std::size_t i = 0; i < segni_.size(); ++i) {
    const auto& segno = segni_[i];
    const auto area = pittore_.Area(pagina_.elementi[static_cast<std::size_t>(segno.elemento)],
                                    totale_, segno.da, segno.quanti);
    tela.fillRect(QRectF(area.topLeft() * scala, area.size() * scala),
                  static_cast<int>(i) == corrente_ ? kTrovatoCorrente : kTrovato);
  }
  pittore_.Dipingi(tela, pagina_, scala, totale_);
  if (!scelta_.isEmpty()) {
    tela.fillRect(QRectF(scelta_.topLeft() * scala, scelta_.size() * scala), kScelto);
  }
  dipinta_ = true;
}

void VistaPagina::resizeEvent(QResizeEvent* evento) {
  QAbstractScrollArea::resizeEvent(evento);
  Scorrimento();
  if (adatta_) emit ZoomCambiato();
}

void VistaPagina::mousePressEvent(QMouseEvent* evento) {
  if (evento->button() != Qt::LeftButton) return;
  presa_ = SullaPagina(evento->position());
  scelta_ = {};
  viewport()->update();
}

void VistaPagina::mouseMoveEvent(QMouseEvent* evento) {
  const QPointF punto = SullaPagina(evento->position());
  if (evento->buttons() & Qt::LeftButton) {
    scelta_ = QRectF(presa_, punto).normalized();
    viewport()->update();
    return;
  }
  viewport()->setCursor(ElementoIn(punto) != nullptr ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

void VistaPagina::mouseReleaseEvent(QMouseEvent*) {
  // A click that trembles chooses nothing.
  constexpr double kTremito = 50;
  if (scelta_.width() < kTremito && scelta_.height() < kTremito) scelta_ = {};
  viewport()->update();
}

void VistaPagina::mouseDoubleClickEvent(QMouseEvent* evento) {
  const auto* elemento = ElementoIn(SullaPagina(evento->position()));
  if (elemento == nullptr) return;
  const Rinvio rinvio = *RinvioDi(*elemento);
  emit RinvioScelto(rinvio);
}

void VistaPagina::wheelEvent(QWheelEvent* evento) {
  const int passi = evento->angleDelta().y();
  if (evento->modifiers() & Qt::ControlModifier) {
    Ingrandisci(passi > 0 ? Zoom() * kPassoZoom : Zoom() / kPassoZoom);
    return;
  }
  const auto* barra = verticalScrollBar();
  if (passi < 0 && barra->value() == barra->maximum()) {
    emit PaginaOltre(1);
  } else if (passi > 0 && barra->value() == barra->minimum()) {
    emit PaginaOltre(-1);
  } else {
    QAbstractScrollArea::wheelEvent(evento);
  }
}

void VistaPagina::keyPressEvent(QKeyEvent* evento) {
  auto* barra = verticalScrollBar();
  if (evento->key() == Qt::Key_PageDown || evento->key() == Qt::Key_Space) {
    if (barra->value() == barra->maximum()) {
      emit PaginaOltre(1);
    } else {
      barra->triggerAction(QAbstractSlider::SliderPageStepAdd);
    }
  } else if (evento->key() == Qt::Key_PageUp) {
    if (barra->value() == barra->minimum()) {
      emit PaginaOltre(-1);
    } else {
      barra->triggerAction(QAbstractSlider::SliderPageStepSub);
    }
  } else {
    QAbstractScrollArea::keyPressEvent(evento);
  }
}

}  // namespace fenalto::print
