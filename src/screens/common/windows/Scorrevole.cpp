#include "screens/common/windows/Scorrevole.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <QScrollBar>

namespace fenalto::screens {

void RiprendiMisura(QWidget& piano) {
  if (auto* disposizione = piano.layout()) disposizione->setGeometry(piano.contentsRect());
}

void PianoScorrevole::showEvent(QShowEvent* evento) {
  QWidget::showEvent(evento);
  RiprendiMisura(*this);
}

Scorrevole::Scorrevole(FinestraFunzione& finestra) : finestra_(finestra) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  // The keys belong to the window: Tab goes through its fields alone.
  setFocusPolicy(Qt::NoFocus);
  setFocusProxy(&finestra);
  // What the window wants the focus in, asked again where it lies now.
  auto* foco = finestra.focusWidget();
  setWidget(&finestra);
  if (foco != nullptr) foco->setFocus(Qt::OtherFocusReason);
  setWindowTitle(finestra.windowTitle());
  connect(&finestra, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget* /*prima*/, QWidget* dopo) { MostraFoco(dopo); });
}

QSize Scorrevole::sizeHint() const {
  return finestra_.sizeHint().expandedTo(finestra_.minimumSizeHint());
}

void Scorrevole::MostraFoco(QWidget* controllo) {
  if (controllo == nullptr || !finestra_.isAncestorOf(controllo)) return;
  if (!horizontalScrollBar()->isVisible() && !verticalScrollBar()->isVisible()) return;
  ensureWidgetVisible(controllo);
}

void Scorrevole::MettiPiede(QWidget& piede) {
  piede_ = &piede;
  piede.setParent(this);
  piede.installEventFilter(this);
}

void Scorrevole::AdattaPiede() {
  if (piede_ == nullptr) return;
  const int largo = width() - 2 * frameWidth();
  const int alto = piede_->isHidden() ? 0 : piede_->heightForWidth(largo);
  setViewportMargins(0, 0, 0, alto);
  piede_->setGeometry(frameWidth(), viewport()->geometry().bottom() + 1, largo, alto);
}

void Scorrevole::resizeEvent(QResizeEvent* evento) {
  QScrollArea::resizeEvent(evento);
  AdattaPiede();
}

bool Scorrevole::eventFilter(QObject* oggetto, QEvent* evento) {
  const bool cambia = evento->type() == QEvent::Show || evento->type() == QEvent::Hide ||
                      evento->type() == QEvent::LayoutRequest;
  if (oggetto == piede_ && cambia) AdattaPiede();
  return QScrollArea::eventFilter(oggetto, evento);
}

void Scorrevole::closeEvent(QCloseEvent* evento) {
  evento->setAccepted(finestra_.close());
}

}  // namespace fenalto::screens
