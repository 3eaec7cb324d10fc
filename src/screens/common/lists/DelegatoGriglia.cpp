#include "screens/common/lists/DelegatoGriglia.h"

#include <QHeaderView>
#include <QPainter>
#include <algorithm>

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

/// Whole lines of a text as far as there is room, each cut at the edge; a mark tells that more
/// follow.
QString LineeIntere(const QString& testo, const QFontMetrics& misura, const QSize& spazio) {
  QStringList linee =
      QString(testo).replace(QChar::LineSeparator, QLatin1Char('\n')).split(QLatin1Char('\n'));
  const qsizetype stanno = std::max(1, spazio.height() / misura.lineSpacing());
  if (linee.size() > stanno) {
    linee.resize(stanno);
    linee.last() += QStringLiteral(" \u2026");
  }
  for (QString& linea : linee) linea = misura.elidedText(linea, Qt::ElideRight, spazio.width());
  return linee.join(QLatin1Char('\n'));
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
  const QString testo = LineeIntere(sua.text, QFontMetrics(carattere), dentro.size());
  griglia_.style()->drawItemText(pittore, dentro, static_cast<int>(sua.displayAlignment),
                                 sua.palette, attiva, testo,
                                 piena ? QPalette::HighlightedText : QPalette::Text);
  pittore->restore();
}

}  // namespace fenalto::screens
