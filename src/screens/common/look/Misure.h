// Distances and sizes of type: few steps, which grow with the font that the system gives.
//
// docs/aspetto.md tells which step goes where.
#pragma once

#include <QFont>

class QLabel;
class QWidget;

namespace fenalto::screens {

/// Distances, in quarters of a line of text (4 px at the usual size of ten points).
enum class Passo {
  Filo = 1,    ///< between things that are one: lines of a list of buttons, a caption and its field
  Vicino = 2,  ///< between fields, between buttons
  Gruppo = 3,  ///< between groups on one line
  Stacco = 4,  ///< between what has nothing to do with each other
  Ampio = 6    ///< around a page that is to be read
};

/// A distance in logical pixels.
[[nodiscard]] int Misura(Passo passo);

/// A length that is stated for the usual size of type (ten points), grown with the system's.
[[nodiscard]] int Cresciuta(int pixel);

/// The side of an icon beside a text, in logical pixels.
[[nodiscard]] int LatoIcona();

/// Sizes of type, as shares of the system's.
enum class Grado {
  Nota,     ///< what explains: 0.9
  Testo,    ///< what is typed and read: 1
  Titolo,   ///< heading of a part: 1.15, bold
  Testata,  ///< heading of a page: 1.4, bold
  Insegna   ///< the program's name: 2.2, bold
};

/// The font of a grade, of the system's family.
[[nodiscard]] QFont Carattere(Grado grado);

/// A text set in bold, at the size that it has.
void InGrassetto(QWidget& testo);

}  // namespace fenalto::screens
