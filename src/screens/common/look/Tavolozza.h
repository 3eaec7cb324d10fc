// The colours of the program, light and dark: grounds and texts as a palette, meanings by name.
#pragma once

#include <QColor>
#include <QPalette>

namespace fenalto::screens {

enum class Tono { Chiaro, Scuro };

/// What a colour says. Each is read on the grounds of its palette with a contrast of 4.5 at least,
/// but for lines.
enum class Segno {
  Accento,     ///< where the focus is, what is chosen, what confirms
  Scaduto,     ///< overdue, wrong, unbalanced
  InScadenza,  ///< due soon, to be looked at
  Fatto,       ///< paid, done, even
  Sommesso,    ///< what explains
  Filo,        ///< lines around fields and boxes: 3 at least on the grounds
  Divisione    ///< lines between parts, to be felt more than seen
};

/// Whether a palette is light or dark, by its ground.
[[nodiscard]] Tono TonoDi(const QPalette& tavolozza);

/// The program's palette of a tone.
[[nodiscard]] QPalette Tavolozza(Tono tono);

/// The colour of a meaning on a palette.
[[nodiscard]] QColor Colore(Segno segno, const QPalette& tavolozza);

/// How far two colours are apart to the eye, 1 to 21; `sopra` may be translucent.
[[nodiscard]] double Contrasto(const QColor& sopra, const QColor& fondo);

}  // namespace fenalto::screens
