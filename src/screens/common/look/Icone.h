// Line icons of the actions that recur, drawn for this program (data/icons/azioni), in the colour
// of the text beside them.
#pragma once

#include <QIcon>
#include <QPainterPath>
#include <filesystem>

class QAbstractButton;

namespace fenalto::screens {

/// Where the drawings are; before any icon is asked for.
void CartellaIcone(const std::filesystem::path& cartella);

/// The icon of a drawing; nothing where there is none of that name.
[[nodiscard]] QIcon IconaAzione(const QString& disegno);

/// Name of the drawing for a control by its object name ("PNuovaRiga" is "nuovo"); empty for none.
[[nodiscard]] QString DisegnoDi(const QString& controllo);

/// Gives a button the icon of its object name, if there is one.
void MettiIcona(QAbstractButton& pulsante);

/// Lines of a drawing on a square of 24: paths of absolute M, L, H, V, C and Z, circles, rounded
/// rectangles. Empty when there is no such drawing, or something else in it.
[[nodiscard]] QPainterPath Tracciato(const QString& disegno);

/// Paints a drawing into a square in one colour.
void DipingiIcona(QPainter& pittore, const QRectF& dove, const QString& disegno,
                  const QColor& colore);

}  // namespace fenalto::screens
