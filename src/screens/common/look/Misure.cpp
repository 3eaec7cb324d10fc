#include "screens/common/look/Misure.h"

#include <QApplication>
#include <QFontMetrics>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace fenalto::screens {

int Misura(Passo passo) {
  // A line of text at ten points is sixteen to eighteen pixels high.
  constexpr int kQuarti = 4;
  const int quarto = std::max(kQuarti, (QFontMetrics(QApplication::font()).height() + 1) / kQuarti);
  return quarto * static_cast<int>(passo);
}

int Cresciuta(int pixel) {
  constexpr int kUsuale = 17;  // height of a line at ten points
  return pixel * std::max(kUsuale, QFontMetrics(QApplication::font()).height()) / kUsuale;
}

int LatoIcona() {
  constexpr int kMinimo = 16;
  return std::max(kMinimo, QFontMetrics(QApplication::font()).height());
}

QFont Carattere(Grado grado) {
  const auto [quota, grassetto] = [grado]() -> std::pair<double, bool> {
    switch (grado) {
      case Grado::Nota:
        return {0.9, false};
      case Grado::Titolo:
        return {1.15, true};
      case Grado::Testata:
        return {1.4, true};
      case Grado::Insegna:
        return {2.2, true};
      case Grado::Testo:
        break;
    }
    return {1.0, false};
  }();
  QFont carattere = QApplication::font();
  carattere.setPointSizeF(carattere.pointSizeF() * quota);
  carattere.setBold(grassetto);
  return carattere;
}

void InGrassetto(QWidget& testo) {
  QFont carattere = testo.font();
  carattere.setBold(true);
  testo.setFont(carattere);
}

}  // namespace fenalto::screens
