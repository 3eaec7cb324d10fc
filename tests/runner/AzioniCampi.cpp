// Commands that type into fields and press buttons.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>

#include "runner/Campi.h"
#include "runner/Contesto.h"
#include "runner/Eventi.h"
#include "runner/VoceElenco.h"

namespace fenalto::copione {
namespace {

/// The field of a name, ready to be typed into: it has the focus, and what leaving the field before
/// raised has been answered.
QWidget& CampoPronto(Contesto& contesto, const QString& nome) {
  for (int volta = 0; volta < 2; ++volta) {
    const auto ricerca = contesto.Cerca();
    auto& controllo = ricerca.Usabile(nome);
    auto* campo = CampoDentro(controllo);
    if (campo == nullptr) ricerca.Fallisci(nome, QStringLiteral("is no field to type into"));
    if (SolaLettura(*campo)) ricerca.Fallisci(nome, QStringLiteral("is read-only"));
    const QPointer<QWidget> vivo(campo);
    const bool fuoco = MettiFuoco(*campo, Qt::TabFocusReason);
    contesto.Attendi();
    // Leaving the field before may have built the window anew: then once more.
    if (!vivo || !vivo->isVisible() || !vivo->isEnabled()) continue;
    if (fuoco && HaFuoco(*vivo)) return *vivo;
    const auto* altro = QApplication::focusWidget();
    ricerca.Fallisci(
        nome, QStringLiteral("does not get the focus, which %1 keeps")
                  .arg(altro != nullptr ? altro->objectName() : QStringLiteral("no control")));
  }
  contesto.Cerca().Fallisci(nome, QStringLiteral("went away when the field before was left"));
}

/// Leaves a field with Tab; a text of many lines keeps Tab to itself and is left by itself.
void Esci(QWidget& campo) {
  const auto* semplice = qobject_cast<QPlainTextEdit*>(&campo);
  const auto* ricco = qobject_cast<QTextEdit*>(&campo);
  const bool tiene = (semplice != nullptr && !semplice->tabChangesFocus()) ||
                     (ricco != nullptr && !ricco->tabChangesFocus());
  if (tiene) {
    campo.clearFocus();
  } else {
    Premi(campo, *TastoDi("Tab"));
  }
}

/// Ticks or unticks; a program that refuses says so.
void Segna(Contesto& contesto, const QString& nome, bool voluto) {
  const auto ricerca = contesto.Cerca();
  const QPointer<QWidget> controllo(&ricerca.Usabile(nome));
  auto* pulsante = qobject_cast<QAbstractButton*>(controllo.data());
  auto* gruppo = qobject_cast<QGroupBox*>(controllo.data());
  const bool spuntabile = (pulsante != nullptr && pulsante->isCheckable()) ||
                          (gruppo != nullptr && gruppo->isCheckable());
  if (!spuntabile) ricerca.Fallisci(nome, QStringLiteral("is nothing to tick"));
  const auto spuntato = [&] {
    return pulsante != nullptr ? pulsante->isChecked() : gruppo->isChecked();
  };
  if (spuntato() == voluto) return;
  MettiFuoco(*controllo, Qt::MouseFocusReason);
  contesto.Attendi();
  if (!controllo) ricerca.Fallisci(nome, QStringLiteral("went away"));
  if (spuntato() == voluto) return;
  ricerca.Accerta(*controllo, nome);
  if (gruppo != nullptr) {
    Premi(*gruppo, *TastoDi("Spazio"));
  } else {
    Clic(*pulsante, PuntoDi(*pulsante));
  }
  contesto.Attendi();
  if (controllo && spuntato() != voluto && !contesto.HaDetto()) {
    ricerca.Fallisci(nome, voluto ? QStringLiteral("did not get ticked")
                                  : QStringLiteral("did not get unticked"));
  }
}

/// Moves the focus as a click does. What takes no focus by design (a tool bar) leaves it where it
/// is; a button of a function window always takes it.
void FuocoPerClic(Contesto& contesto, QWidget& controllo) {
  const bool pulsante = qobject_cast<QAbstractButton*>(&controllo) != nullptr;
  const bool funzione =
      qobject_cast<screens::FinestraFunzione*>(&contesto.scena.Corrente()) != nullptr;
  if (controllo.focusPolicy() == Qt::NoFocus && !(pulsante && funzione)) return;
  MettiFuoco(controllo, Qt::MouseFocusReason);
  contesto.Attendi();
}

void PremiCollegamento(QLabel& etichetta) {
  static const QRegularExpression kRiferimento(QStringLiteral("href\\s*=\\s*[\"']([^\"']*)[\"']"),
                                               QRegularExpression::CaseInsensitiveOption);
  const auto trovato = kRiferimento.match(etichetta.text());
  if (trovato.hasMatch()) {
    emit etichetta.linkActivated(trovato.captured(1));
  } else {
    Clic(etichetta, etichetta.rect().center());
  }
}

}  // namespace

void Scrivi(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  const QString testo = Qs(comando.Testo(1));
  const QPointer<QWidget> campo(&CampoPronto(contesto, nome));
  auto* elenco = qobject_cast<QComboBox*>(campo.data());
  if (elenco != nullptr && !elenco->isEditable()) {
    ScegliDaCasella(contesto, *elenco, nome, testo, true);
  } else {
    SelezionaTutto(*campo);
    if (testo.isEmpty()) {
      Premi(*campo, *TastoDi("Canc"));
    } else {
      Digita(*campo, testo);
    }
  }
  contesto.Attendi();
  if (campo && HaFuoco(*campo)) Esci(*campo);
}

void DigitaIn(Contesto& contesto, const Comando& comando) {
  const QPointer<QWidget> campo(&CampoPronto(contesto, Qs(comando.Testo(0))));
  VaiInFondo(*campo);
  Digita(*campo, Qs(comando.Testo(1)));
}

void PremiTasto(Contesto& contesto, const Comando& comando) {
  const auto tasto = TastoDi(comando.Testo(1));
  const QPointer<QWidget> controllo(&contesto.Cerca().Usabile(Qs(comando.Testo(0))));
  if (!HaFuoco(*controllo) && controllo != &contesto.scena.Corrente() &&
      controllo->focusPolicy() != Qt::NoFocus) {
    const bool fuoco = MettiFuoco(*controllo, Qt::TabFocusReason);
    contesto.Attendi();
    if (!controllo || !fuoco) {
      contesto.Cerca().Fallisci(Qs(comando.Testo(0)), QStringLiteral("does not get the focus"));
    }
  }
  Premi(*controllo, *tasto);
}

void Spunta(Contesto& contesto, const Comando& comando) {
  Segna(contesto, Qs(comando.Testo(0)), true);
}

void Togli(Contesto& contesto, const Comando& comando) {
  Segna(contesto, Qs(comando.Testo(0)), false);
}

void ClicSu(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  auto ricerca = contesto.Cerca();
  if (auto* voce = ricerca.Tutti(nome).isEmpty() ? ricerca.VoceMenu(nome) : nullptr) {
    if (!voce->isEnabled() || !voce->isVisible()) {
      ricerca.Fallisci(nome, QStringLiteral("is a menu entry that can't be chosen"));
    }
    voce->trigger();
    return;
  }
  QPointer<QWidget> pulsante(&ricerca.Pulsante(nome));
  FuocoPerClic(contesto, *pulsante);
  // Leaving the field before may have hidden the button, or built the window anew.
  if (!pulsante || !pulsante->isVisible()) {
    pulsante = &contesto.Cerca().Pulsante(nome);
  } else {
    contesto.Cerca().Accerta(*pulsante, nome);
  }
  if (auto* etichetta = qobject_cast<QLabel*>(pulsante.data())) {
    PremiCollegamento(*etichetta);
  } else {
    Clic(*pulsante, PuntoDi(*pulsante));
  }
}

void Pagina(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  const int pagina = comando.Numero(1);
  const auto ricerca = contesto.Cerca();
  const QPointer<QTabWidget> schede(qobject_cast<QTabWidget*>(&ricerca.Trova(nome)));
  if (!schede) ricerca.Fallisci(nome, QStringLiteral("is no tab control"));
  if (!schede->isEnabled()) ricerca.Fallisci(nome, QStringLiteral("is disabled"));
  if (pagina >= schede->count()) {
    ricerca.Fallisci(nome, QStringLiteral("has %1 pages, from 0").arg(schede->count()));
  }
  if (!schede->isTabEnabled(pagina) || !schede->isTabVisible(pagina)) {
    ricerca.Fallisci(nome, QStringLiteral("has page %1 disabled or hidden").arg(pagina));
  }
  GiraPagina(*schede, pagina);
  contesto.Attendi();
  if (schede && schede->currentIndex() != pagina && !contesto.HaDetto()) {
    ricerca.Fallisci(nome, QStringLiteral("did not turn to page %1").arg(pagina));
  }
}

}  // namespace fenalto::copione
