#include "screens/common/windows/Tastiera.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeView>
#include <algorithm>

namespace fenalto::screens {
namespace {

/// Beginnings of the names of buttons that go on with the work.
constexpr const char* kAvanti[] = {"Conferma", "PNuovaRiga", "Nuovo",    "Apri",
                                   "Command1", "Stampa",     "Aggiorna", "Prova",
                                   "Cerca",    "Imposta",    "Leggi",    "Importa"};
/// And of those that begin so but lead elsewhere.
constexpr const char* kAltrove[] = {"ApriAllegato",  "ConfermaAgg",   "NuovoDaScad",
                                    "NuovoAnticipo", "NuovoInsoluti", "NuovoRiba"};

bool ComincianoCosi(const QString& nome, const auto& inizi) {
  return std::any_of(std::begin(inizi), std::end(inizi),
                     [&](const char* inizio) { return nome.startsWith(QLatin1String(inizio)); });
}

bool SiPrende(const QWidget& controllo) {
  if (!controllo.isVisible() || !controllo.isEnabled() ||
      !(controllo.focusPolicy() & Qt::TabFocus)) {
    return false;
  }
  if (const auto* pulsante = qobject_cast<const QAbstractButton*>(&controllo)) {
    const QString nome = controllo.objectName();
    return pulsante->isCheckable() ||
           (ComincianoCosi(nome, kAvanti) && !ComincianoCosi(nome, kAltrove));
  }
  if (const auto* riga = qobject_cast<const QLineEdit*>(&controllo)) return !riga->isReadOnly();
  // The keys of pages and the lists beside a form aren't on the way.
  return qobject_cast<const QTabBar*>(&controllo) == nullptr &&
         qobject_cast<const QTabWidget*>(&controllo) == nullptr &&
         qobject_cast<const QLabel*>(&controllo) == nullptr &&
         qobject_cast<const QListView*>(&controllo) == nullptr;
}

/// Radio buttons of one field are one stop.
bool StessoCampo(const QWidget& uno, const QWidget& altro) {
  return qobject_cast<const QRadioButton*>(&uno) != nullptr &&
         qobject_cast<const QRadioButton*>(&altro) != nullptr &&
         uno.parentWidget() == altro.parentWidget();
}

bool Girabile(const QTabWidget& schede) {
  if (!schede.isVisible() || !schede.isEnabled()) return false;
  int quante = 0;
  for (int i = 0; i < schede.count(); ++i) {
    if (schede.isTabEnabled(i) && schede.isTabVisible(i)) ++quante;
  }
  return quante > 1;
}

QTabWidget* SchedeDaGirare(const QWidget& finestra) {
  for (auto* sopra = finestra.window()->focusWidget(); sopra != nullptr && sopra != &finestra;
       sopra = sopra->parentWidget()) {
    auto* schede = qobject_cast<QTabWidget*>(sopra);
    if (schede != nullptr && Girabile(*schede)) return schede;
  }
  // The record's pages come after those of the choice.
  const auto tutte = finestra.findChildren<QTabWidget*>();
  const auto girabile = std::find_if(tutte.rbegin(), tutte.rend(),
                                     [](const QTabWidget* schede) { return Girabile(*schede); });
  return girabile == tutte.rend() ? nullptr : *girabile;
}

}  // namespace

QWidget* DopoInvio(const QWidget& finestra, QWidget& campo) {
  for (auto* dopo = campo.nextInFocusChain(); dopo != nullptr && dopo != &campo;
       dopo = dopo->nextInFocusChain()) {
    if (finestra.isAncestorOf(dopo) && dopo->focusProxy() == nullptr && SiPrende(*dopo) &&
        !StessoCampo(*dopo, campo) && !campo.isAncestorOf(dopo)) {
      return dopo;
    }
  }
  return nullptr;
}

QWidget* DopoInvio(const QList<QWidget*>& ordine, const QWidget& campo) {
  for (auto i = ordine.indexOf(&campo) + 1; i < ordine.size(); ++i) {
    if (SiPrende(*ordine[i]) && !StessoCampo(*ordine[i], campo)) return ordine[i];
  }
  return nullptr;
}

void PremiPassando(QAbstractButton& pulsante) {
  if (!pulsante.isVisible() || !pulsante.isEnabled()) return;
  pulsante.setFocus(Qt::TabFocusReason);
  if (pulsante.window()->focusWidget() == &pulsante) pulsante.click();
}

bool GiraPagine(const QWidget& finestra, const QKeyEvent& tasto) {
  if (!tasto.modifiers().testFlag(Qt::ControlModifier) ||
      tasto.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) {
    return false;
  }
  const bool avanti = tasto.key() == Qt::Key_Tab;
  const bool indietro = tasto.key() == Qt::Key_Backtab;
  const int cifra = tasto.key() - Qt::Key_1;
  constexpr int kCifre = 9;
  if (!avanti && !indietro && (cifra < 0 || cifra >= kCifre)) return false;
  auto* schede = SchedeDaGirare(finestra);
  if (schede == nullptr) return false;
  if (!avanti && !indietro) {
    if (cifra < schede->count() && schede->isTabEnabled(cifra) && schede->isTabVisible(cifra)) {
      schede->setCurrentIndex(cifra);
    }
    return true;
  }
  const int quante = schede->count();
  const int passo = avanti && !tasto.modifiers().testFlag(Qt::ShiftModifier) ? 1 : quante - 1;
  int pagina = schede->currentIndex();
  do {
    pagina = (pagina + passo) % quante;
  } while (!schede->isTabEnabled(pagina) || !schede->isTabVisible(pagina));
  schede->setCurrentIndex(pagina);
  return true;
}

void CopiaAlbero(const QTreeView& albero) {
  const auto* modello = albero.model();
  const auto riga = [&](const auto& cella) {
    QStringList celle;
    for (int i = 0; i < modello->columnCount(); ++i) {
      if (!albero.isColumnHidden(i)) celle << cella(i);
    }
    return celle.join(QLatin1Char('\t'));
  };
  QStringList righe{riga([&](int i) { return modello->headerData(i, Qt::Horizontal).toString(); })};
  for (auto ramo = modello->index(0, 0); ramo.isValid(); ramo = albero.indexBelow(ramo)) {
    righe << riga([&](int i) { return ramo.siblingAtColumn(i).data().toString(); });
  }
  QApplication::clipboard()->setText(righe.join(QLatin1Char('\n')));
}

void SelezioneEntrando::Guarda(QObject* oggetto, const QEvent& evento) {
  if (evento.type() != QEvent::FocusIn && evento.type() != QEvent::MouseButtonRelease) return;
  auto* riga = qobject_cast<QLineEdit*>(oggetto);
  if (const auto* elenco = qobject_cast<QComboBox*>(oggetto)) riga = elenco->lineEdit();
  if (riga == nullptr) return;
  if (evento.type() == QEvent::MouseButtonRelease) {
    // What was dragged over stays selected as it was.
    if (cliccata_ == riga && !riga->hasSelectedText()) riga->selectAll();
    cliccata_.clear();
    return;
  }
  const auto motivo = static_cast<const QFocusEvent&>(evento).reason();
  if (motivo == Qt::MouseFocusReason) {
    cliccata_ = riga;
  } else if (motivo != Qt::PopupFocusReason && motivo != Qt::MenuBarFocusReason) {
    riga->selectAll();
  }
}

}  // namespace fenalto::screens
