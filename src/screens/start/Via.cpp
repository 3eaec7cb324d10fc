#include "screens/start/Via.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <QVBoxLayout>

#include "screens/common/look/Misure.h"
#include "screens/common/look/Tavolozza.h"

namespace fenalto::screens {
namespace {

constexpr int kRaggio = 6;
constexpr int kSottoTitolo = 2;

/// Between an edge and the text.
int Margine() {
  return Misura(Passo::Gruppo);
}

QColor Mescola(const QColor& a, const QColor& b, double parte) {
  const auto misto = [parte](int da, int fino) {
    return static_cast<int>(da + (fino - da) * parte);
  };
  return {misto(a.red(), b.red()), misto(a.green(), b.green()), misto(a.blue(), b.blue())};
}

void RettangoloTondo(QPainter& pittore, const QRect& dove, const QColor& fondo,
                     const QColor& bordo) {
  pittore.setRenderHint(QPainter::Antialiasing);
  pittore.setBrush(fondo);
  pittore.setPen(QPen(bordo, 1));
  pittore.drawRoundedRect(QRectF(dove).adjusted(0.5, 0.5, -0.5, -0.5), kRaggio, kRaggio);
}

}  // namespace

Via::Via(const QString& nome, Aspetto aspetto, QWidget* genitore)
    : QAbstractButton(genitore), aspetto_(aspetto) {
  setObjectName(nome);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Via::Mostra(const QString& titolo, const QString& sotto, const QString& valore) {
  titolo_ = titolo;
  sotto_ = sotto;
  valore_ = valore;
  QStringList parti{titolo, sotto, valore};
  parti.removeAll(QString());
  setText(parti.join(QStringLiteral(" ")));
  setAccessibleName(text());
  updateGeometry();
  update();
}

void Via::Avvisa(bool avvisa) {
  avvisa_ = avvisa;
  update();
}

QFont Via::Lettere(bool titolo) const {
  return Carattere(titolo && aspetto_ == Aspetto::Grande ? Grado::Testata : Grado::Testo);
}

QSize Via::sizeHint() const {
  const QFontMetrics titolo(Lettere(true));
  const QFontMetrics sotto(Lettere(false));
  const int righe = titolo.height() + (sotto_.isEmpty() ? 0 : sotto.height() + kSottoTitolo);
  const int margine = Misura(aspetto_ == Aspetto::Grande ? Passo::Stacco
                             : aspetto_ == Aspetto::Riga ? Passo::Vicino
                                                         : Passo::Filo);
  const int larghezza =
      std::max(titolo.horizontalAdvance(titolo_), sotto.horizontalAdvance(sotto_));
  const int valore = valore_.isEmpty() ? 0 : titolo.horizontalAdvance(valore_) + Margine();
  return {larghezza + valore + 2 * Margine(), righe + 2 * margine};
}

QSize Via::minimumSizeHint() const {
  constexpr int kMinima = 120;
  return {Cresciuta(kMinima), sizeHint().height()};
}

bool Via::event(QEvent* evento) {
  const bool tagliata = sizeHint().width() > width();
  if (evento->type() == QEvent::ToolTip && toolTip().isEmpty() && tagliata) {
    QToolTip::showText(static_cast<QHelpEvent*>(evento)->globalPos(), text(), this);
    return true;
  }
  return QAbstractButton::event(evento);
}

void Via::paintEvent(QPaintEvent* /*evento*/) {
  QPainter pittore(this);
  const QPalette& tavolozza = palette();
  const QColor accento = tavolozza.color(QPalette::Highlight);
  const QColor base = tavolozza.color(QPalette::Base);
  const bool grande = aspetto_ == Aspetto::Grande;
  const bool sopra = underMouse() && isEnabled();
  const QColor fondo = grande  ? (sopra || isDown() ? Mescola(accento, base, 0.12) : accento)
                       : sopra ? Mescola(base, accento, 0.14)
                               : base;
  if (grande || sopra) RettangoloTondo(pittore, rect(), fondo, fondo);
  if (hasFocus()) {
    const QColor anello =
        grande ? tavolozza.color(QPalette::Text) : Colore(Segno::Accento, tavolozza);
    pittore.setRenderHint(QPainter::Antialiasing);
    pittore.setBrush(Qt::NoBrush);
    pittore.setPen(QPen(anello, 2));
    pittore.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kRaggio, kRaggio);
  }
  const QColor testo =
      grande ? tavolozza.color(QPalette::HighlightedText) : tavolozza.color(QPalette::Text);
  const QColor tenue = grande ? testo : Colore(Segno::Sommesso, tavolozza);
  QRect dentro = rect().adjusted(Margine(), 0, -Margine(), 0);
  const QFontMetrics misure(Lettere(true));
  if (!valore_.isEmpty()) {
    const bool quieto = aspetto_ == Aspetto::Minuta;
    QFont forte = Lettere(true);
    forte.setBold(!quieto);
    const int larghezza = QFontMetrics(forte).horizontalAdvance(valore_);
    pittore.setFont(forte);
    pittore.setPen(avvisa_ ? Colore(Segno::Scaduto, tavolozza) : quieto ? tenue : testo);
    pittore.drawText(dentro, Qt::AlignRight | Qt::AlignVCenter, valore_);
    dentro.setRight(dentro.right() - larghezza - Margine());
  }
  const QFontMetrics minute(Lettere(false));
  const int alta = misure.height() + (sotto_.isEmpty() ? 0 : minute.height() + kSottoTitolo);
  int y = (height() - alta) / 2;
  pittore.setFont(Lettere(true));
  pittore.setPen(testo);
  pittore.drawText(QRect(dentro.left(), y, dentro.width(), misure.height()), Qt::AlignVCenter,
                   misure.elidedText(titolo_, Qt::ElideRight, dentro.width()));
  if (sotto_.isEmpty()) return;
  y += misure.height() + kSottoTitolo;
  pittore.setFont(Lettere(false));
  pittore.setPen(tenue);
  pittore.drawText(QRect(dentro.left(), y, dentro.width(), minute.height()), Qt::AlignVCenter,
                   minute.elidedText(sotto_, Qt::ElideRight, dentro.width()));
}

void Via::keyPressEvent(QKeyEvent* evento) {
  switch (evento->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      click();
      return;
    case Qt::Key_Down:
      focusNextChild();
      return;
    case Qt::Key_Up:
      focusPreviousChild();
      return;
    default:
      QAbstractButton::keyPressEvent(evento);
  }
}

void Via::enterEvent(QEnterEvent* evento) {
  QAbstractButton::enterEvent(evento);
  update();
}

void Via::leaveEvent(QEvent* evento) {
  QAbstractButton::leaveEvent(evento);
  update();
}

RiquadroPagina::RiquadroPagina(const QString& titolo, QWidget* genitore)
    : QFrame(genitore), colonna_(new QVBoxLayout(this)), nota_(new QLabel(this)) {
  const int lato = Misura(Passo::Filo);
  colonna_->setContentsMargins(lato, Misura(Passo::Gruppo), lato, Misura(Passo::Vicino));
  colonna_->setSpacing(0);
  auto* intestazione = new QLabel(titolo, this);
  intestazione->setForegroundRole(QPalette::Text);
  intestazione->setFont(Carattere(Grado::Titolo));
  intestazione->setContentsMargins(Margine(), 0, Margine(), lato);
  colonna_->addWidget(intestazione);
  nota_->setContentsMargins(Margine(), kSottoTitolo, Margine(), kSottoTitolo);
  nota_->setWordWrap(true);
  nota_->hide();
  colonna_->addWidget(nota_);
  colonna_->addStretch(1);
}

void RiquadroPagina::Aggiungi(QWidget* pezzo) {
  constexpr int kSotto = 2;  // the note, and the room left
  colonna_->insertWidget(colonna_->count() - kSotto, pezzo);
}

void RiquadroPagina::Nota(const QString& testo, bool avvisa) {
  QPalette tavolozza = palette();
  tavolozza.setColor(QPalette::WindowText, avvisa ? Colore(Segno::Scaduto, tavolozza)
                                                  : Colore(Segno::Sommesso, tavolozza));
  nota_->setPalette(tavolozza);
  nota_->setText(testo);
  nota_->setVisible(!testo.isEmpty());
}

void RiquadroPagina::paintEvent(QPaintEvent* /*evento*/) {
  QPainter pittore(this);
  const QColor base = palette().color(QPalette::Base);
  RettangoloTondo(pittore, rect(), base, Colore(Segno::Divisione, palette()));
}

}  // namespace fenalto::screens
