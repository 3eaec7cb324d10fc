#include "screens/common/Disposizione.h"

#include <QPalette>
#include <QPushButton>
#include <QSet>
#include <algorithm>

namespace fenalto {
namespace {

/// Letters of the main window's menus: a letter that two things have presses neither.
constexpr QLatin1String kLettereMenu("AMRSCI");
constexpr int kUltimaCifra = 9;

/// Index of the letter to mark: a word's first one if it can be, or -1.
int Scelta(const QString& testo, const QSet<QChar>& usate) {
  const auto libera = [&](int i) {
    const QChar lettera = testo[i].toUpper();
    return lettera.isLetterOrNumber() && lettera.unicode() < 128 && !usate.contains(lettera);
  };
  const int lunghezza = static_cast<int>(testo.size());
  for (int i = 0; i < lunghezza; ++i) {
    if ((i == 0 || !testo[i - 1].isLetterOrNumber()) && libera(i)) return i;
  }
  for (int i = 0; i < lunghezza; ++i) {
    if (libera(i)) return i;
  }
  return -1;
}

}  // namespace

QLabel* Didascalia(const QString& testo, QWidget* controllo) {
  auto* etichetta = new QLabel(testo);
  etichetta->setBuddy(controllo);
  controllo->setAccessibleName(testo);
  return etichetta;
}

void LargoCaratteri(QWidget* campo, int caratteri) {
  constexpr int kMargine = 18;  // frame and inner margin of a field
  campo->setFixedWidth(campo->fontMetrics().horizontalAdvance(QLatin1Char('0')) * caratteri +
                       kMargine);
}

QPushButton* Pulsante(const QString& nome, const QString& testo, const QString& tasto) {
  auto* pulsante = new QPushButton(testo);
  pulsante->setObjectName(nome);
  pulsante->setAutoDefault(false);
  if (!tasto.isEmpty()) {
    pulsante->setToolTip(QStringLiteral("%1 (%2)").arg(testo, tasto));
  }
  return pulsante;
}

void ColoraErrato(QWidget* campo, bool errato) {
  constexpr int kMezzo = 128;
  QPalette tavolozza;
  if (errato) {
    const bool scuro = campo->palette().color(QPalette::Base).lightness() < kMezzo;
    tavolozza.setColor(QPalette::Text, scuro ? QColor(255, 120, 120) : QColor(190, 20, 20));
  }
  campo->setPalette(tavolozza);
}

void FocoInVista(QWidget* controllo) {
  controllo->setFocus(Qt::ShortcutFocusReason);
}

void AssegnaMnemoniche(const QList<QAbstractButton*>& pulsanti) {
  QSet<QChar> usate;
  for (const auto lettera : QString(kLettereMenu)) usate.insert(lettera);
  int cifra = 0;
  for (auto* pulsante : pulsanti) {
    const QString testo = pulsante->text();
    const int indice = Scelta(testo, usate);
    if (indice >= 0) {
      usate.insert(testo[indice].toUpper());
      pulsante->setText(QString(testo).insert(indice, QLatin1Char('&')));
    } else if (testo.size() > 1 && cifra < kUltimaCifra) {
      pulsante->setText(QStringLiteral("%1 (&%2)").arg(testo).arg(++cifra));
    }
  }
}

}  // namespace fenalto
