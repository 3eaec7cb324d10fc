#include "screens/common/lists/PiedeGriglia.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <algorithm>

#include "screens/common/lists/DelegatoGriglia.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {

PiedeGriglia::PiedeGriglia(Griglia& griglia, const QString& titolo)
    : griglia_(griglia), titolo_(new QLabel(titolo, this)) {
  const auto* testata = griglia.horizontalHeader();
  connect(testata, &QHeaderView::sectionResized, this, &PiedeGriglia::Allinea);
  connect(testata, &QHeaderView::sectionMoved, this, &PiedeGriglia::Allinea);
  connect(griglia.horizontalScrollBar(), &QScrollBar::valueChanged, this, &PiedeGriglia::Allinea);
  griglia.viewport()->installEventFilter(this);
}

void PiedeGriglia::Metti(int colonna, QWidget* totale) {
  totale->setParent(this);
  // As far from the column's edge as its cells.
  if (qobject_cast<QLabel*>(totale) != nullptr) totale->setContentsMargins(0, 0, MargineCella(), 0);
  totali_.emplace_back(colonna, totale);
  Allinea();
}

bool PiedeGriglia::eventFilter(QObject* oggetto, QEvent* evento) {
  if (evento->type() == QEvent::Resize || evento->type() == QEvent::Show) Allinea();
  return QWidget::eventFilter(oggetto, evento);
}

void PiedeGriglia::resizeEvent(QResizeEvent* evento) {
  QWidget::resizeEvent(evento);
  Allinea();
}

void PiedeGriglia::Allinea() {
  int alto = titolo_->sizeHint().height();
  for (const auto& [colonna, totale] : totali_) {
    alto = std::max({alto, totale->minimumSizeHint().height(), totale->fontMetrics().height() + 1});
  }
  setFixedHeight(alto);
  const auto* testata = griglia_.horizontalHeader();
  const int inizio = griglia_.viewport()->mapToGlobal(QPoint()).x() - mapToGlobal(QPoint()).x();
  int primo = width();
  for (const auto& [colonna, totale] : totali_) {
    const int sinistra = inizio + testata->sectionViewportPosition(colonna);
    totale->setGeometry(sinistra, 0, testata->sectionSize(colonna), height());
    primo = std::min(primo, sinistra);
  }
  titolo_->setGeometry(inizio, 0, std::max(0, primo - inizio), height());
}

}  // namespace fenalto::screens
