#include "screens/common/lists/DelegatoGriglia.h"

#include <QHeaderView>
#include <QPainter>

#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

constexpr int kStriscia = 3;
constexpr int kTintaCorrente = 80;  // of 255, of the accent, where the grid hasn't the focus
constexpr int kTintaSegnata = 35;

QColor Tinta(QColor colore, int quanta) {
  colore.setAlpha(quanta);
  return colore;
}

}  // namespace

int MargineCella() {
  return Misura(Passo::Filo) * 3 / 2;
}

DelegatoGriglia::DelegatoGriglia(Griglia& griglia)
    : QStyledItemDelegate(&griglia), griglia_(griglia) {}

void DelegatoGriglia::paint(QPainter* pittore, const QStyleOptionViewItem& opzione,
                            const QModelIndex& indice) const {
  QStyleOptionViewItem sua = opzione;
  initStyleOption(&sua, indice);
  const bool corrente = griglia_.RigaCorrente() == indice.row();
  const bool segnata = griglia_.Segnata(indice.row());
  const bool attiva = griglia_.isEnabled();
  const bool piena = corrente && griglia_.hasFocus();
  sua.palette.setCurrentColorGroup(attiva ? QPalette::Active : QPalette::Disabled);
  const QColor accento = sua.palette.color(QPalette::Highlight);
  const QRect cella = opzione.rect;
  pittore->save();
  pittore->fillRect(cella, sua.palette.brush(sua.features & QStyleOptionViewItem::Alternate
                                                 ? QPalette::AlternateBase
                                                 : QPalette::Base));
  if (segnata) pittore->fillRect(cella, Tinta(accento, kTintaSegnata));
  if (corrente) pittore->fillRect(cella, piena ? accento : Tinta(accento, kTintaCorrente));
  if ((segnata || corrente) && griglia_.horizontalHeader()->visualIndex(indice.column()) == 0) {
    pittore->fillRect(QRect(cella.topLeft(), QSize(kStriscia, cella.height())), accento);
  }
  QFont carattere = sua.font;
  carattere.setBold(segnata);
  pittore->setFont(carattere);
  const QRect dentro = cella.adjusted(MargineCella(), 0, -MargineCella(), 0);
  const QString testo =
      QFontMetrics(carattere).elidedText(sua.text, Qt::ElideRight, dentro.width());
  griglia_.style()->drawItemText(pittore, dentro, static_cast<int>(sua.displayAlignment),
                                 sua.palette, attiva, testo,
                                 piena ? QPalette::HighlightedText : QPalette::Text);
  pittore->restore();
}

}  // namespace fenalto::screens
