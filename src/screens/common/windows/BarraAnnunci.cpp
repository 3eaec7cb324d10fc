#include "screens/common/windows/BarraAnnunci.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStyle>
#include <QTimer>

namespace fenalto::screens {
namespace {

/// A text of many lines in few: its paragraphs stay apart, the lines of one stand in a row.
QString Compatto(const QString& testo) {
  constexpr qsizetype kLinee = 3;
  if (testo.count(QLatin1Char('\n')) < kLinee) return testo;
  QStringList paragrafi = testo.split(QStringLiteral("\n\n"), Qt::SkipEmptyParts);
  for (auto& paragrafo : paragrafi) {
    paragrafo.replace(QLatin1Char('\n'), QStringLiteral("  ·  "));
  }
  return paragrafi.join(QLatin1Char('\n'));
}

bool SoloModificatore(int tasto) {
  return tasto == Qt::Key_Shift || tasto == Qt::Key_Control || tasto == Qt::Key_Alt ||
         tasto == Qt::Key_AltGr || tasto == Qt::Key_Meta;
}

}  // namespace

BarraAnnunci::BarraAnnunci(QWidget* genitore) : QFrame(genitore), testo_(new QLabel) {
  setObjectName(QStringLiteral("BarraAnnunci"));
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  QPalette colori = palette();
  colori.setColor(QPalette::Window, colori.color(QPalette::ToolTipBase));
  colori.setColor(QPalette::WindowText, colori.color(QPalette::ToolTipText));
  setPalette(colori);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  testo_->setObjectName(QStringLiteral("TestoAnnuncio"));
  testo_->setTextFormat(Qt::PlainText);
  testo_->setWordWrap(true);
  testo_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  testo_->setFocusPolicy(Qt::NoFocus);
  auto* segno = new QLabel;
  const int lato = style()->pixelMetric(QStyle::PM_SmallIconSize);
  segno->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(lato, lato));
  auto* riga = new QHBoxLayout(this);
  riga->addWidget(segno, 0, Qt::AlignTop);
  riga->addWidget(testo_, 1);
  hide();
}

void BarraAnnunci::Annuncia(const QString& testo) {
  if (passati_) testi_.clear();
  passati_ = false;
  testi_ << Compatto(testo);
  testo_->setText(testi_.join(QLatin1Char('\n')));
  if (isHidden()) qApp->installEventFilter(this);
  show();
  QAccessibleEvent detto(testo_, QAccessible::Alert);
  QAccessible::updateAccessibility(&detto);
}

void BarraAnnunci::Azione(int attesa) {
  passati_ = true;
  QTimer::singleShot(attesa, this, [this] {
    if (!passati_ || isHidden()) return;
    qApp->removeEventFilter(this);
    hide();
  });
}

bool BarraAnnunci::eventFilter(QObject* oggetto, QEvent* evento) {
  const auto* controllo = qobject_cast<QWidget*>(oggetto);
  // Boxes that stand over the window belong to what is being done in it.
  if (controllo == nullptr || controllo->window() != window() || isAncestorOf(controllo)) {
    return false;
  }
  switch (evento->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
      if (!SoloModificatore(static_cast<QKeyEvent*>(evento)->key())) Azione(0);
      break;
    case QEvent::MouseButtonRelease:
      // A second click of the same gesture still finds things where they were.
      Azione(QApplication::doubleClickInterval());
      break;
    default:
      break;
  }
  return false;
}

}  // namespace fenalto::screens
