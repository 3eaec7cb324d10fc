// Entries and rows of combo boxes, lists, trees and grids.
#pragma once

#include <QModelIndex>
#include <QString>

class QAbstractItemView;
class QComboBox;

namespace fenalto::copione {

struct Contesto;

/// Picks an entry of a combo box through its list. With `iniziali` the text may be how the entry
/// begins, as when its letters are typed.
void ScegliDaCasella(Contesto& contesto, QComboBox& casella, const QString& nome,
                     const QString& testo, bool iniziali);

/// Rows in sight of a grid, list or tree (branches that are shut don't count), after those that
/// still come in pages were fetched, at most `massimo`.
int ContaRighe(QAbstractItemView& vista, int massimo);
/// Cell `colonna` of row `riga`, both from 0; an invalid index when there is no such row.
QModelIndex IndiceDi(QAbstractItemView& vista, int riga, int colonna);
/// Whether a column is shown.
bool ColonnaVisibile(const QAbstractItemView& vista, int colonna);
/// Text of a cell, si or no where it only holds a tick.
QString TestoCella(const QAbstractItemView& vista, const QModelIndex& indice);

}  // namespace fenalto::copione
