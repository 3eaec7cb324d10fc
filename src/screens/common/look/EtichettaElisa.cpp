#include "screens/common/look/EtichettaElisa.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace fenalto::screens {

EtichettaElisa::EtichettaElisa(QWidget* genitore) : QLabel(genitore) {
  setTextFormat(Qt::PlainText);
}

bool EtichettaElisa::Tagliata() const {
  return !wordWrap() &&
         fontMetrics().size(0, text()).width() > contentsRect().width() - 2 * margin();
}

QSize EtichettaElisa::minimumSizeHint() const {
  const QSize sua = QLabel::minimumSizeHint();
  return wordWrap() ? sua : QSize(0, sua.height());
}

void EtichettaElisa::paintEvent(QPaintEvent* evento) {
  if (!Tagliata()) return QLabel::paintEvent(evento);
  QPainter pittore(this);
  drawFrame(&pittore);
  const QRect dove = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
  QStringList righe = text().split(QLatin1Char('\n'));
  for (QString& riga : righe) {
    riga = fontMetrics().elidedText(riga, Qt::ElideRight, dove.width());
  }
  style()->drawItemText(&pittore, dove, static_cast<int>(alignment()), palette(), isEnabled(),
                        righe.join(QLatin1Char('\n')), foregroundRole());
}

bool EtichettaElisa::event(QEvent* evento) {
  if (evento->type() == QEvent::ToolTip && toolTip().isEmpty() && Tagliata()) {
    QToolTip::showText(static_cast<QHelpEvent*>(evento)->globalPos(), text(), this);
    return true;
  }
  return QLabel::event(evento);
}

}  // namespace fenalto::screens
