// The shapes that the style draws.
#pragma once

class QPainter;
class QRect;
class QStyleOption;
class QStyleOptionHeader;
class QStyleOptionTab;

namespace fenalto::screens {

/// The ring around what has the focus.
void DisegnaFoco(QPainter& pittore, const QStyleOption& opzione);
/// Frame and ground of a field.
void DisegnaCampo(QPainter& pittore, const QStyleOption& opzione, bool fermo);
/// Ground and frame of a button; the one that confirms has the accent.
void DisegnaPulsante(QPainter& pittore, const QStyleOption& opzione, bool conferma);
/// Outlined box, or ring, with its mark.
void DisegnaCasella(QPainter& pittore, const QStyleOption& opzione, bool tonda);
/// A tab: flat, the chosen one with a line of the accent.
void DisegnaLinguetta(QPainter& pittore, const QStyleOptionTab& opzione);
/// A list to pick from: a field with an arrow in `freccia`.
void DisegnaElenco(QPainter& pittore, const QStyleOption& opzione, const QRect& freccia);
/// Ground of a column's head.
void DisegnaTestata(QPainter& pittore, const QStyleOption& opzione);
/// A column's caption; it ends with an ellipsis where there is no room for it.
void DisegnaTitolo(QPainter& pittore, const QStyleOptionHeader& opzione);
/// The frame of a list or of a text of several lines.
void DisegnaCornice(QPainter& pittore, const QStyleOption& opzione);
/// The frame around a group of fields.
void DisegnaGruppo(QPainter& pittore, const QStyleOption& opzione);

}  // namespace fenalto::screens
