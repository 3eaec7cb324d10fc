#include "runner/Scena.h"

#include <QApplication>
#include <QFrame>
#include <algorithm>

#include "runner/Eventi.h"

namespace fenalto::copione {

QList<QWidget*> Scena::Sopra() {
  QList<QWidget*> finestre;
  for (auto* finestra : Principale().FinestreAperte()) finestre << finestra;
  for (auto* altra : QApplication::topLevelWidgets()) {
    const auto tipo = altra->windowType();
    const bool finestra = tipo == Qt::Window || tipo == Qt::Dialog;
    if (finestra && altra->isVisible() && altra != &Principale() &&
        !altra->objectName().isEmpty()) {
      finestre << altra;
    }
  }
  return finestre;
}

bool Scena::RiquadroAperto() {
  const auto figli = Principale().findChildren<QFrame*>(QString(), Qt::FindDirectChildrenOnly);
  return std::any_of(figli.begin(), figli.end(), [this](const QFrame* figlio) {
    return figlio->isVisible() && figlio != Principale().centralWidget() &&
           !figlio->objectName().isEmpty();
  });
}

void Scena::InCima(QWidget* finestra) {
  pila_.removeAll(finestra);
  pila_.append(finestra);
}

void Scena::Aggiorna() {
  if (!programma_.InCorso() || programma_.HaChiestoFine()) return;
  auto* principale = &Principale();
  if (avvio_ != programma_.Avvii()) {
    avvio_ = programma_.Avvii();
    pila_ = {principale};
    ultimaDavanti_ = nullptr;
    riquadro_ = false;
    alzataDalRiquadro_ = false;
  }
  const auto aperte = Sopra();
  const bool chiusaDavanti = ultimaDavanti_.isNull() || !aperte.contains(ultimaDavanti_.data());
  pila_.removeIf([&](const QPointer<QWidget>& f) {
    return f.isNull() ||
           (f != principale && f != Principale().SfondoAperto() && !aperte.contains(f.data()));
  });
  bool nuove = false;
  for (auto* finestra : aperte) {
    if (pila_.contains(finestra)) continue;
    pila_.append(finestra);
    nuove = true;
  }
  auto* davanti = aperte.isEmpty() ? nullptr : aperte.last();
  if (davanti != nullptr && davanti != ultimaDavanti_ && !nuove) {
    // When the one in front closed, the one below it in the pile comes next.
    if (!chiusaDavanti || pila_.last() != principale) InCima(davanti);
  }
  ultimaDavanti_ = davanti;
  // A box belongs to the main window, which goes back where it was when the box has gone.
  const bool riquadro = RiquadroAperto();
  if (riquadro && !riquadro_ && pila_.last() != principale) {
    InCima(principale);
    alzataDalRiquadro_ = true;
  } else if (!riquadro && alzataDalRiquadro_) {
    pila_.removeAll(principale);
    pila_.prepend(principale);
    alzataDalRiquadro_ = false;
  }
  riquadro_ = riquadro;
}

QWidget& Scena::Corrente() {
  Aggiorna();
  if (pila_.isEmpty() || pila_.last().isNull()) return Principale();
  return *pila_.last();
}

QWidget* Scena::PerNome(const QString& nome) {
  if (nome.compare(Principale().objectName(), Qt::CaseInsensitive) == 0) return &Principale();
  for (auto* finestra : Sopra()) {
    if (finestra->objectName().compare(nome, Qt::CaseInsensitive) == 0) return finestra;
  }
  auto* sfondo = Principale().SfondoAperto();
  if (sfondo != nullptr && sfondo->objectName().compare(nome, Qt::CaseInsensitive) == 0) {
    return sfondo;
  }
  return nullptr;
}

void Scena::PortaAvanti(QWidget& finestra) {
  if (auto* funzione = qobject_cast<screens::FinestraFunzione*>(&finestra)) {
    Principale().PortaAvanti(*funzione);
    Attiva(finestra);
  } else if (finestra.isWindow()) {
    Attiva(finestra);
  }
  SmaltisciEventi();
  Aggiorna();
  InCima(&finestra);
  alzataDalRiquadro_ = false;
}

QStringList Scena::Aperte() {
  QStringList nomi{Principale().objectName()};
  for (auto* finestra : Sopra()) nomi << finestra->objectName();
  return nomi;
}

}  // namespace fenalto::copione
