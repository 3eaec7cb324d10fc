#include "screens/common/fields/Disposizione.h"

#include <QCheckBox>
#include <QHash>
#include <QPalette>
#include <QPushButton>
#include <QSet>
#include <utility>
#include <vector>

namespace fenalto::screens {
namespace {

/// Letters of the main window's menus: a letter that two things have presses neither.
constexpr QLatin1String kLettereMenu("AMRSCIFU");
constexpr int kUltimaCifra = 9;

/// Places of the letters that may be marked, first ones of words before the others.
std::vector<int> Segnabili(const QString& testo) {
  std::vector<int> iniziali;
  std::vector<int> altre;
  for (int i = 0; i < static_cast<int>(testo.size()); ++i) {
    const QChar lettera = testo[i].toUpper();
    if (!lettera.isLetterOrNumber() || lettera.unicode() >= 128) continue;
    if (QString(kLettereMenu).contains(lettera)) continue;
    (i == 0 || !testo[i - 1].isLetterOrNumber() ? iniziali : altre).push_back(i);
  }
  iniziali.insert(iniziali.end(), altre.begin(), altre.end());
  return iniziali;
}

/// Gives letters to captions one after another; a caption for which none is left takes that of
/// another one which can do with a different letter.
class Lettere {
 public:
  explicit Lettere(std::vector<QString> testi) : testi_(std::move(testi)) {
    for (const QString& testo : testi_) segnabili_.push_back(Segnabili(testo));
    scelte_.assign(testi_.size(), -1);
  }

  /// Place of the letter of each caption, -1 for none.
  std::vector<int> Assegna() {
    for (std::size_t quale = 0; quale < testi_.size(); ++quale) {
      QSet<QChar> viste;
      Trova(quale, viste);
    }
    return scelte_;
  }

 private:
  [[nodiscard]] QChar Lettera(std::size_t quale, int posto) const {
    return testi_[quale][posto].toUpper();
  }

  bool Trova(std::size_t quale, QSet<QChar>& viste) {
    const auto prendi = [&](int posto) {
      scelte_[quale] = posto;
      di_[Lettera(quale, posto)] = quale;
      return true;
    };
    for (const int posto : segnabili_[quale]) {
      if (!di_.contains(Lettera(quale, posto))) return prendi(posto);
    }
    for (const int posto : segnabili_[quale]) {
      const QChar lettera = Lettera(quale, posto);
      if (viste.contains(lettera)) continue;
      viste.insert(lettera);
      if (Trova(di_.value(lettera), viste)) return prendi(posto);
    }
    return false;
  }

  std::vector<QString> testi_;
  std::vector<std::vector<int>> segnabili_;
  std::vector<int> scelte_;
  QHash<QChar, std::size_t> di_;
};

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

QCheckBox* Casella(const char* nome, const QString& testo) {
  auto* casella = new QCheckBox(testo);
  casella->setObjectName(QString::fromLatin1(nome));
  return casella;
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

void OrdinaFuochi(const QList<QWidget*>& controlli) {
  for (qsizetype i = 1; i < controlli.size(); ++i) {
    QWidget::setTabOrder(controlli[i - 1], controlli[i]);
  }
}

void AssegnaMnemoniche(const QList<QAbstractButton*>& pulsanti) {
  std::vector<QString> testi;
  for (const auto* pulsante : pulsanti) testi.push_back(pulsante->text());
  const std::vector<int> posti = Lettere(testi).Assegna();
  int cifra = 0;
  for (std::size_t i = 0; i < testi.size(); ++i) {
    auto* pulsante = pulsanti[static_cast<qsizetype>(i)];
    if (posti[i] >= 0) {
      pulsante->setText(QString(testi[i]).insert(posti[i], QLatin1Char('&')));
    } else if (testi[i].size() > 1 && cifra < kUltimaCifra) {
      pulsante->setText(QStringLiteral("%1 (&%2)").arg(testi[i]).arg(++cifra));
    }
  }
}

}  // namespace fenalto::screens
