#include "runner/Ricerca.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QToolBar>
#include <algorithm>

#include "runner/Eventi.h"
#include "runner/Fallimento.h"
#include "screens/common/look/ParteRara.h"

namespace fenalto::copione {
namespace {

bool NascostoApposta(const QWidget& controllo) {
  return controllo.isHidden() && controllo.testAttribute(Qt::WA_WState_ExplicitShowHide);
}

/// The tab control whose page a widget is; null when it is no page.
QTabWidget* SchedeDi(const QWidget& pagina) {
  auto* pila = qobject_cast<QStackedWidget*>(pagina.parentWidget());
  if (pila == nullptr) return nullptr;
  auto* schede = qobject_cast<QTabWidget*>(pila->parentWidget());
  return schede != nullptr && schede->indexOf(&pagina) >= 0 ? schede : nullptr;
}

bool DiSfondo(const QWidget& controllo) {
  return controllo.objectName() == QLatin1String("Sfondo");
}

/// Whether a control lies in a window of its own inside the window searched.
bool InAltraFinestra(const QWidget& controllo, const QWidget& radice, bool sfondo) {
  if (controllo.window() != radice.window()) return true;
  for (const auto* w = &controllo; w != nullptr && w != &radice; w = w->parentWidget()) {
    if (qobject_cast<const QMdiSubWindow*>(w) != nullptr || (!sfondo && DiSfondo(*w))) return true;
  }
  return false;
}

bool Interno(const QString& nome) {
  return nome.isEmpty() || nome.startsWith(QLatin1String("qt_")) ||
         nome.startsWith(QLatin1String("_q_")) || nome == QLatin1String("ScrollLeftButton") ||
         nome == QLatin1String("ScrollRightButton");
}

QString DescriviCopertura(const QWidget& sopra) {
  for (const auto* w = &sopra; w != nullptr; w = w->parentWidget()) {
    if (!Interno(w->objectName())) return w->objectName();
  }
  return QString::fromLatin1(sopra.metaObject()->className());
}

/// Scrolls and moves what is around a control until it is in view.
void PortaInVista(QWidget& controllo) {
  for (auto* w = controllo.parentWidget(); w != nullptr; w = w->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(w)) area->ensureWidgetVisible(&controllo);
    auto* cornice = qobject_cast<QMdiSubWindow*>(w);
    if (cornice == nullptr || cornice->parentWidget() == nullptr) continue;
    const QRect vista = cornice->parentWidget()->rect();
    const QPoint punto = controllo.mapTo(cornice->parentWidget(), PuntoDi(controllo));
    if (vista.contains(punto)) continue;
    cornice->move(cornice->pos() + vista.center() - punto);
  }
  SmaltisciEventi();
}

}  // namespace

QString SenzaMnemonica(const QString& testo) {
  QString pulito;
  // A letter that stands after a caption isn't of it.
  static const QRegularExpression kAggiunta(QStringLiteral(" \\(&[A-Z]\\)$"));
  const QString voce = testo.section(QLatin1Char('\t'), 0, 0).remove(kAggiunta);
  for (qsizetype i = 0; i < voce.size(); ++i) {
    if (voce.at(i) == QLatin1Char('&') && i + 1 < voce.size()) ++i;
    pulito += voce.at(i);
  }
  return pulito.trimmed();
}

QPoint PuntoDi(const QWidget& controllo) {
  QStyleOptionButton stile;
  stile.initFrom(&controllo);
  if (qobject_cast<const QCheckBox*>(&controllo) != nullptr) {
    return controllo.style()
        ->subElementRect(QStyle::SE_CheckBoxIndicator, &stile, &controllo)
        .center();
  }
  if (qobject_cast<const QRadioButton*>(&controllo) != nullptr) {
    return controllo.style()
        ->subElementRect(QStyle::SE_RadioButtonIndicator, &stile, &controllo)
        .center();
  }
  return controllo.rect().center();
}

void GiraPagina(QTabWidget& schede, int pagina) {
  if (schede.currentIndex() == pagina) return;
  auto* linguette = schede.tabBar();
  const QPoint punto = linguette->tabRect(pagina).center();
  if (linguette->isVisible() && linguette->rect().contains(punto)) {
    Clic(*linguette, punto);
  } else {
    schede.setCurrentIndex(pagina);  // its tab is scrolled out of the bar
  }
  SmaltisciEventi();
}

QList<QWidget*> Ricerca::Controlli() const {
  QList<QWidget*> controlli;
  const bool principale = qobject_cast<QMainWindow*>(&finestra_) != nullptr;
  for (auto* controllo : finestra_.findChildren<QWidget*>()) {
    if (!InAltraFinestra(*controllo, finestra_, !principale)) controlli << controllo;
  }
  return controlli;
}

QStringList Ricerca::Nomi() const {
  QStringList nomi;
  for (const auto* controllo : Controlli()) {
    if (!Interno(controllo->objectName())) nomi << controllo->objectName();
  }
  for (const auto* azione : finestra_.findChildren<QAction*>()) {
    if (!Interno(azione->objectName())) nomi << azione->objectName();
  }
  nomi.removeDuplicates();
  nomi.sort(Qt::CaseInsensitive);
  return nomi;
}

void Ricerca::Fallisci(const QString& nome, const QString& motivo) const {
  throw Fallimento(
      QStringLiteral("\"%1\" %2; window %3 has: %4")
          .arg(nome, motivo, finestra_.objectName(), Nomi().join(QStringLiteral(", "))));
}

QList<QWidget*> Ricerca::Tutti(const QString& nome) const {
  const auto uguale = [&](const QObject* oggetto) {
    return oggetto->objectName().compare(nome, Qt::CaseInsensitive) == 0;
  };
  QList<QWidget*> trovati;
  for (auto* controllo : Controlli()) {
    if (uguale(controllo)) trovati << controllo;
  }
  for (auto* barra : finestra_.findChildren<QToolBar*>()) {
    for (auto* azione : barra->actions()) {
      auto* pulsante = barra->widgetForAction(azione);
      if (pulsante != nullptr && uguale(azione) && !trovati.contains(pulsante)) trovati << pulsante;
    }
  }
  if (trovati.isEmpty() && qobject_cast<QMainWindow*>(&finestra_) != nullptr) {
    // The background counts as part of the main window.
    for (auto* controllo : finestra_.findChildren<QWidget*>()) {
      if (uguale(controllo) && !InAltraFinestra(*controllo, finestra_, true)) trovati << controllo;
    }
  }
  if (trovati.isEmpty() && uguale(&finestra_)) trovati << &finestra_;
  return trovati;
}

bool Ricerca::Girabile(const QWidget& controllo) const {
  for (const auto* w = &controllo; w != nullptr && w != &finestra_; w = w->parentWidget()) {
    const auto* schede = SchedeDi(*w);
    // What is folded can be unfolded.
    if (qobject_cast<const screens::ParteRara*>(w) != nullptr) continue;
    if (schede == nullptr) {
      if (NascostoApposta(*w)) return false;
      continue;
    }
    const int pagina = schede->indexOf(const_cast<QWidget*>(w));
    const bool siGira =
        schede->isTabEnabled(pagina) && schede->isTabVisible(pagina) && schede->isEnabled();
    if (schede->currentIndex() != pagina && !siGira) return false;
  }
  return finestra_.isVisible();
}

void Ricerca::Gira(QWidget& controllo) const {
  QList<QWidget*> pagine;  // the outermost first
  for (auto* w = &controllo; w != nullptr && w != &finestra_; w = w->parentWidget()) {
    if (SchedeDi(*w) != nullptr) pagine.prepend(w);
    if (auto* rara = qobject_cast<screens::ParteRara*>(w)) rara->Apri(true);
  }
  for (auto* pagina : pagine) {
    auto* schede = SchedeDi(*pagina);
    GiraPagina(*schede, schede->indexOf(pagina));
  }
}

QWidget* Ricerca::Unico(QList<QWidget*> candidati, const QString& nome) const {
  if (candidati.size() > 1) {
    QList<QWidget*> attivi;
    std::copy_if(candidati.begin(), candidati.end(), std::back_inserter(attivi),
                 [](const QWidget* w) { return w->isEnabled(); });
    if (!attivi.isEmpty()) candidati = attivi;
  }
  if (candidati.size() > 1) {
    Fallisci(nome, QStringLiteral("is ambiguous: %1 controls bear the name").arg(candidati.size()));
  }
  return candidati.isEmpty() ? nullptr : candidati.first();
}

QWidget& Ricerca::Trova(const QString& nome) const {
  auto& trovato = Guarda(nome);
  if (trovato.isVisible()) return trovato;
  Gira(trovato);
  if (!trovato.isVisible()) Fallisci(nome, QStringLiteral("is on a page that did not turn"));
  return trovato;
}

QWidget& Ricerca::Guarda(const QString& nome) const {
  const auto tutti = Tutti(nome);
  if (tutti.isEmpty()) Fallisci(nome, QStringLiteral("is no control"));
  QList<QWidget*> visibili;
  QList<QWidget*> girabili;
  for (auto* controllo : tutti) {
    if (controllo->isVisible()) {
      visibili << controllo;
    } else if (Girabile(*controllo)) {
      girabili << controllo;
    }
  }
  if (auto* visibile = Unico(visibili, nome)) return *visibile;
  auto* altrove = Unico(girabili, nome);
  if (altrove == nullptr) Fallisci(nome, QStringLiteral("is hidden"));
  return *altrove;
}

void Ricerca::Accerta(QWidget& controllo, const QString& nome) const {
  if (!controllo.isVisible()) Fallisci(nome, QStringLiteral("is hidden"));
  if (!controllo.isEnabled()) Fallisci(nome, QStringLiteral("is disabled"));
  if (controllo.size().isEmpty()) Fallisci(nome, QStringLiteral("has no room"));
  PortaInVista(controllo);
  auto* finestra = controllo.window();
  const QPoint punto = controllo.mapTo(finestra, PuntoDi(controllo));
  const auto* sopra = finestra->childAt(punto);
  if (sopra == nullptr || sopra == &controllo) return;
  // A frame around it is not over it, nor is what the control is made of.
  if (controllo.isAncestorOf(sopra) || sopra->isAncestorOf(&controllo)) return;
  Fallisci(nome, QStringLiteral("is covered by %1").arg(DescriviCopertura(*sopra)));
}

QWidget& Ricerca::Usabile(const QString& nome) const {
  auto& controllo = Trova(nome);
  Accerta(controllo, nome);
  return controllo;
}

QWidget& Ricerca::Pulsante(const QString& nome) const {
  if (!Tutti(nome).isEmpty()) return Usabile(nome);
  QList<QWidget*> visibili;
  for (auto* controllo : Controlli()) {
    auto* pulsante = qobject_cast<QAbstractButton*>(controllo);
    if (pulsante == nullptr || !pulsante->isVisible()) continue;
    if (SenzaMnemonica(pulsante->text()).compare(nome, Qt::CaseInsensitive) == 0) {
      visibili << pulsante;
    }
  }
  auto* pulsante = Unico(visibili, nome);
  if (pulsante == nullptr) Fallisci(nome, QStringLiteral("is no button"));
  Accerta(*pulsante, nome);
  return *pulsante;
}

QAction* Ricerca::VoceMenu(const QString& nome) const {
  for (auto* menu : finestra_.findChildren<QMenu*>()) {
    for (auto* azione : menu->actions()) {
      if (azione->objectName().compare(nome, Qt::CaseInsensitive) == 0) return azione;
    }
  }
  return nullptr;
}

}  // namespace fenalto::copione
