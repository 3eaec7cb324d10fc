// How a cell of a grid is painted: with room on both sides, so that a right-aligned column keeps
// its distance from the next; the current row and the chosen ones plain to see.
#pragma once

#include <QStyledItemDelegate>

namespace fenalto::screens {

class Griglia;

/// Room on either side of a cell's text, in pixels.
int MargineCella();

class DelegatoGriglia : public QStyledItemDelegate {
  Q_OBJECT

 public:
  explicit DelegatoGriglia(Griglia& griglia);
  void paint(QPainter* pittore, const QStyleOptionViewItem& opzione,
             const QModelIndex& indice) const override;

 private:
  const Griglia& griglia_;
};

}  // namespace fenalto::screens
