#include "screens/common/fields/Disposizione.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QPalette>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QStackedWidget>
#include <QTabWidget>
#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "screens/common/look/Icone.h"
#include "screens/common/look/Misure.h"
#include "screens/common/look/Tavolozza.h"

namespace fenalto::screens {
namespace {

/// Letters of the main window's menus: a letter that two things have presses neither.
constexpr QLatin1String kLettereMenu("AMRSCI");

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
/// others which can do with different letters. `insieme` tells whether two captions may be in sight
/// at once: only then they need different letters.
class Lettere {
 public:
  using Insieme = std::function<bool(std::size_t, std::size_t)>;

  Lettere(std::vector<QString> testi, Insieme insieme)
      : testi_(std::move(testi)), insieme_(std::move(insieme)) {
    for (const QString& testo : testi_) segnabili_.push_back(Segnabili(testo));
    scelte_.assign(testi_.size(), -1);
  }

  /// Place of the letter of each caption. Where no letter of its own is left, one that no other has
  /// is written after the caption.
  std::vector<int> Assegna(std::vector<QString>& testi) {
    for (std::size_t quale = 0; quale < testi_.size(); ++quale) {
      QSet<QChar> viste;
      if (!Trova(quale, viste)) Aggiungi(quale);
    }
    testi = testi_;
    return scelte_;
  }

 private:
  [[nodiscard]] QChar Lettera(std::size_t quale, int posto) const {
    return posto < 0 ? QChar() : testi_[quale][posto].toUpper();
  }

  /// Captions in sight together with this one that have the letter.
  [[nodiscard]] std::vector<std::size_t> ChiHa(QChar lettera, std::size_t quale) const {
    std::vector<std::size_t> altri;
    for (std::size_t altro = 0; altro < testi_.size(); ++altro) {
      if (altro != quale && Lettera(altro, scelte_[altro]) == lettera && insieme_(quale, altro)) {
        altri.push_back(altro);
      }
    }
    return altri;
  }

  void Aggiungi(std::size_t quale) {
    for (char lettera = 'Z'; lettera >= 'A'; --lettera) {
      const QLatin1Char sua(lettera);
      if (QString(kLettereMenu).contains(sua) || !ChiHa(sua, quale).empty()) continue;
      testi_[quale] += QStringLiteral(" (%1)").arg(sua);
      scelte_[quale] = static_cast<int>(testi_[quale].size()) - 2;
      segnabili_[quale].push_back(scelte_[quale]);
      return;
    }
  }

  bool Trova(std::size_t quale, QSet<QChar>& viste) {
    for (const int posto : segnabili_[quale]) {
      if (!ChiHa(Lettera(quale, posto), quale).empty()) continue;
      scelte_[quale] = posto;
      return true;
    }
    for (const int posto : segnabili_[quale]) {
      const QChar lettera = Lettera(quale, posto);
      if (viste.contains(lettera)) continue;
      viste.insert(lettera);
      const auto prima = scelte_;
      scelte_[quale] = posto;
      const auto altri = ChiHa(lettera, quale);
      if (std::all_of(altri.begin(), altri.end(),
                      [&](std::size_t altro) { return Trova(altro, viste); })) {
        return true;
      }
      scelte_ = prima;
    }
    return false;
  }

  std::vector<QString> testi_;
  Insieme insieme_;
  std::vector<std::vector<int>> segnabili_;
  std::vector<int> scelte_;
};

/// A caption without the mark of its letter.
QString SenzaSegno(QString testo) {
  for (int i = 0; i < static_cast<int>(testo.size()); ++i) {
    if (testo[i] == QLatin1Char('&')) testo.remove(i, 1);
  }
  return testo;
}

/// The caption without its letter, marked in it or put after it.
QString Dicitura(const QAbstractButton& pulsante) {
  static const QRegularExpression kAggiunta(QStringLiteral(" \\(&[A-Z]\\)$"));
  return SenzaSegno(pulsante.text().remove(kAggiunta));
}

void Segna(const QList<QAbstractButton*>& pulsanti, const Lettere::Insieme& insieme) {
  std::vector<QString> testi;
  // A letter written after a caption gives way to a better one.
  for (const auto* pulsante : pulsanti) testi.push_back(Dicitura(*pulsante));
  const std::vector<int> posti = Lettere(testi, insieme).Assegna(testi);
  for (std::size_t i = 0; i < testi.size(); ++i) {
    QString testo = testi[i];
    // A letter on either side of the mark stands as it is; an ampersand of the caption is doubled.
    for (int dove = static_cast<int>(testo.size()) - 1; dove >= 0; --dove) {
      if (testo[dove] == QLatin1Char('&') || dove == posti[i]) testo.insert(dove, QLatin1Char('&'));
    }
    pulsanti[static_cast<qsizetype>(i)]->setText(testo);
  }
}

/// Whether two controls stand on different pages of the same tabs.
bool SuPagineDiverse(const QWidget* uno, const QWidget* altro) {
  for (const auto* pagina = uno; pagina != nullptr; pagina = pagina->parentWidget()) {
    const auto* pila = qobject_cast<QStackedWidget*>(pagina->parentWidget());
    if (pila == nullptr || !pila->isAncestorOf(altro)) continue;
    return pagina != altro && !pagina->isAncestorOf(altro);
  }
  return false;
}

}  // namespace

QLabel* Didascalia(const QString& testo, QWidget* controllo) {
  auto* etichetta = new QLabel(testo);
  etichetta->setBuddy(controllo);
  controllo->setAccessibleName(testo);
  return etichetta;
}

void Affianca(QBoxLayout& riga, const QString& didascalia, QWidget* campo, int peso) {
  riga.addWidget(Didascalia(didascalia, campo));
  riga.addWidget(campo, peso);
}

void LargoCaratteri(QWidget* campo, int caratteri) {
  campo->setFixedWidth(campo->fontMetrics().horizontalAdvance(QLatin1Char('0')) * caratteri +
                       2 * Misura(Passo::Vicino) + 2);
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
  MettiIcona(*pulsante);
  if (!tasto.isEmpty()) {
    pulsante->setToolTip(QStringLiteral("%1 (%2)").arg(testo, tasto));
  }
  return pulsante;
}

void PreparaSchede(QTabWidget& schede, const QString& nome) {
  schede.setObjectName(nome);
  schede.setDocumentMode(true);
}

void MisuraDellaPagina(QTabWidget& schede) {
  const auto misura = [&schede] {
    for (int i = 0; i < schede.count(); ++i) {
      const auto verso = i == schede.currentIndex() ? QSizePolicy::Preferred : QSizePolicy::Ignored;
      schede.widget(i)->setSizePolicy(verso, verso);
    }
  };
  misura();
  QObject::connect(&schede, &QTabWidget::currentChanged, &schede, misura);
}

void ColoraErrato(QWidget* campo, bool errato) {
  QPalette tavolozza;
  if (errato) tavolozza.setColor(QPalette::Text, Colore(Segno::Scaduto, campo->palette()));
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

bool HaTasto(const QAbstractButton& pulsante) {
  return pulsante.toolTip().startsWith(Dicitura(pulsante) + QStringLiteral(" ("));
}

void AssegnaMnemoniche(const QList<QAbstractButton*>& pulsanti) {
  Segna(pulsanti, [](std::size_t, std::size_t) { return true; });
}

void DistribuisciLettere(const QWidget& finestra) {
  QList<QAbstractButton*> pulsanti;
  for (auto* pulsante : finestra.findChildren<QPushButton*>()) {
    const bool usato = pulsante->isEnabled() || !pulsante->shortcut().isEmpty();
    if (usato && !pulsante->text().isEmpty()) pulsanti << pulsante;
  }
  // What is pressed all day chooses first, then jumps to other functions; a button that has a key
  // of its own can do without.
  const auto turno = [](const QAbstractButton* pulsante) {
    const QString nome = pulsante->objectName();
    const auto primi = {"Conferma", "ConfermaRiga", "Nuovo", "PNuovaRiga", "Apri", "Stampa"};
    const auto* suo = std::find_if(primi.begin(), primi.end(),
                                   [&](const char* primo) { return nome == QLatin1String(primo); });
    if (suo != primi.end()) return 0;
    if (HaTasto(*pulsante)) return 3;
    return nome.startsWith(QLatin1String("FunzCor")) ? 2 : 1;
  };
  std::stable_sort(pulsanti.begin(), pulsanti.end(),
                   [&](const auto* uno, const auto* altro) { return turno(uno) < turno(altro); });
  Segna(pulsanti, [&](std::size_t uno, std::size_t altro) {
    return !SuPagineDiverse(pulsanti[static_cast<qsizetype>(uno)],
                            pulsanti[static_cast<qsizetype>(altro)]);
  });
}

}  // namespace fenalto::screens
