#include "screens/start/Via.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

namespace fenalto::screens {
namespace {

constexpr int kMargine = 12;
constexpr int kRaggio = 8;
constexpr int kMezzaLuce = 128;
constexpr int kSottoTitolo = 2;
constexpr double kLettereGrandi = 1.35;

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

QColor ColoreTenue(const QPalette& tavolozza) {
  return Mescola(tavolozza.color(QPalette::Text), tavolozza.color(QPalette::Base), 0.38);
}

QColor ColoreAvviso(const QPalette& tavolozza) {
  const bool scuro = tavolozza.color(QPalette::Base).lightness() < kMezzaLuce;
  return scuro ? QColor(255, 140, 120) : QColor(176, 32, 24);
}

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

QFont Via::Carattere(bool titolo) const {
  QFont carattere = font();
  if (!titolo) return carattere;
  carattere.setBold(aspetto_ == Aspetto::Grande);
  if (aspetto_ == Aspetto::Grande) {
    carattere.setPointSizeF(carattere.pointSizeF() * kLettereGrandi);
  }
  return carattere;
}

QSize Via::sizeHint() const {
  const QFontMetrics titolo(Carattere(true));
  const QFontMetrics sotto(Carattere(false));
  const int righe = titolo.height() + (sotto_.isEmpty() ? 0 : sotto.height() + kSottoTitolo);
  const int margine = aspetto_ == Aspetto::Grande ? kMargine + 4
                      : aspetto_ == Aspetto::Riga ? kMargine / 2
                                                  : kMargine / 3;
  const int larghezza =
      std::max(titolo.horizontalAdvance(titolo_), sotto.horizontalAdvance(sotto_));
  const int valore = valore_.isEmpty() ? 0 : titolo.horizontalAdvance(valore_) + kMargine;
  return {larghezza + valore + 2 * kMargine, righe + 2 * margine};
}

QSize Via::minimumSizeHint() const {
  constexpr int kMinima = 120;
  return {kMinima, sizeHint().height()};
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
    const QColor anello = grande ? tavolozza.color(QPalette::Text) : accento;
    pittore.setRenderHint(QPainter::Antialiasing);
    pittore.setBrush(Qt::NoBrush);
    pittore.setPen(QPen(anello, 2));
    pittore.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kRaggio, kRaggio);
  }
  const QColor testo =
      grande ? tavolozza.color(QPalette::HighlightedText) : tavolozza.color(QPalette::Text);
  const QColor tenue = grande ? testo : ColoreTenue(tavolozza);
  QRect dentro = rect().adjusted(kMargine, 0, -kMargine, 0);
  const QFontMetrics misure(Carattere(true));
  if (!valore_.isEmpty()) {
    const bool quieto = aspetto_ == Aspetto::Minuta;
    QFont forte = Carattere(true);
    forte.setBold(!quieto);
    const int larghezza = QFontMetrics(forte).horizontalAdvance(valore_);
    pittore.setFont(forte);
    pittore.setPen(avvisa_ ? ColoreAvviso(tavolozza) : quieto ? tenue : testo);
    pittore.drawText(dentro, Qt::AlignRight | Qt::AlignVCenter, valore_);
    dentro.setRight(dentro.right() - larghezza - kMargine);
  }
  const QFontMetrics minute(Carattere(false));
  const int alta = misure.height() + (sotto_.isEmpty() ? 0 : minute.height() + kSottoTitolo);
  int y = (height() - alta) / 2;
  pittore.setFont(Carattere(true));
  pittore.setPen(testo);
  pittore.drawText(QRect(dentro.left(), y, dentro.width(), misure.height()), Qt::AlignVCenter,
                   misure.elidedText(titolo_, Qt::ElideRight, dentro.width()));
  if (sotto_.isEmpty()) return;
  y += misure.height() + kSottoTitolo;
  pittore.setFont(Carattere(false));
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
  colonna_->setContentsMargins(4, 10, 4, 8);
  colonna_->setSpacing(0);
  auto* intestazione = new QLabel(titolo, this);
  intestazione->setForegroundRole(QPalette::Text);
  QFont carattere = intestazione->font();
  carattere.setBold(true);
  intestazione->setFont(carattere);
  intestazione->setContentsMargins(kMargine, 0, kMargine, 4);
  colonna_->addWidget(intestazione);
  nota_->setContentsMargins(kMargine, 2, kMargine, 2);
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
  tavolozza.setColor(QPalette::WindowText,
                     avvisa ? ColoreAvviso(tavolozza) : ColoreTenue(tavolozza));
  nota_->setPalette(tavolozza);
  nota_->setText(testo);
  nota_->setVisible(!testo.isEmpty());
}

void RiquadroPagina::paintEvent(QPaintEvent* /*evento*/) {
  QPainter pittore(this);
  const QColor base = palette().color(QPalette::Base);
  RettangoloTondo(pittore, rect(), base, Mescola(base, palette().color(QPalette::Text), 0.16));
}

}  // namespace fenalto::screens
