#include "screens/common/windows/FinestraFunzione.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QTabWidget>

#include "screens/common/lists/EsportaGriglia.h"

namespace fenalto::screens {

FinestraFunzione::FinestraFunzione(const QString& nome, const QString& titolo, Finestre& finestre)
    : finestre_(finestre) {
  setObjectName(nome);
  setWindowTitle(titolo);
  setAttribute(Qt::WA_DeleteOnClose, false);
  qApp->installEventFilter(this);
}

void FinestraFunzione::ApriScheda(int scheda) {
  if (auto* schede = findChild<QTabWidget*>(QStringLiteral("SSTab1")); schede && scheda >= 0) {
    schede->setCurrentIndex(scheda);
  }
}

void FinestraFunzione::ApriRecord(const Rinvio& rinvio) {
  if (auto* selettore = findChild<QLineEdit*>(QStringLiteral("Rt1"))) {
    selettore->setText(QString::fromStdString(rinvio.codice));
    Premi({"Apri"});
  }
}

void FinestraFunzione::Esporta(Griglia& griglia) {
  EsportaGriglia(griglia, Sessione(), windowTitle().toStdString());
}

void FinestraFunzione::Segui(const Rinvio& rinvio) {
  finestre_.Segui(rinvio);
}

bool FinestraFunzione::Premi(std::initializer_list<const char*> nomi) {
  for (const char* nome : nomi) {
    for (auto* pulsante : findChildren<QAbstractButton*>(QString::fromLatin1(nome))) {
      if (pulsante->isVisible() && pulsante->isEnabled()) {
        pulsante->setFocus();
        // A field whose text can't be read has taken the focus back: nothing is pressed.
        if (window()->focusWidget() == pulsante) pulsante->click();
        return true;
      }
    }
  }
  return false;
}

bool FinestraFunzione::eventFilter(QObject* oggetto, QEvent* evento) {
  auto* controllo = qobject_cast<QWidget*>(oggetto);
  if (controllo == nullptr || !isAncestorOf(controllo)) return false;
  if (evento->type() == QEvent::MouseButtonPress) return FocoNegato(controllo);
  if (evento->type() != QEvent::KeyPress) return false;
  return TastoPremuto(controllo, static_cast<QKeyEvent*>(evento));
}

bool FinestraFunzione::FocoNegato(const QWidget* controllo) const {
  const auto* pulsante = qobject_cast<const QAbstractButton*>(controllo);
  return pulsante != nullptr && pulsante->isEnabled() && isActiveWindow() &&
         pulsante->focusPolicy() & Qt::ClickFocus && window()->focusWidget() != pulsante;
}

bool FinestraFunzione::TastoPremuto(QWidget* controllo, const QKeyEvent* tasto) {
  const bool invio = tasto->key() == Qt::Key_Return || tasto->key() == Qt::Key_Enter;
  const bool ctrl = tasto->modifiers().testFlag(Qt::ControlModifier);
  if (invio && ctrl) return PremiConferma();
  // Before a line edit takes it as "delete the word".
  if (tasto->key() == Qt::Key_Delete && ctrl && Premi({"EliminaRiga", "Elimina"})) return true;
  if (!invio || tasto->modifiers() & ~Qt::KeypadModifier) return false;
  // Enter in the selector opens; in a button it presses; in a grid it chooses; elsewhere it is Tab.
  if (controllo->objectName() == QStringLiteral("Rt1")) {
    if (auto* codice = qobject_cast<CampoCodice*>(controllo)) codice->clearFocus();
    return Premi({"Apri"});
  }
  if (auto* pulsante = qobject_cast<QAbstractButton*>(controllo);
      pulsante != nullptr && !pulsante->isCheckable()) {
    pulsante->click();
    return true;
  }
  if (qobject_cast<QAbstractItemView*>(controllo) || qobject_cast<QPlainTextEdit*>(controllo)) {
    return false;
  }
  focusNextChild();
  return true;
}

void FinestraFunzione::keyPressEvent(QKeyEvent* evento) {
  switch (evento->key()) {
    case Qt::Key_Insert:
      if (Premi({"PNuovaRiga", "Nuovo"})) return;
      break;
    case Qt::Key_F5:
      Aggiorna();
      return;
    case Qt::Key_Escape:
      if (!Indietro()) {
        if (auto* cornice = qobject_cast<QMdiSubWindow*>(parentWidget())) cornice->close();
      }
      return;
    default:
      break;
  }
  QWidget::keyPressEvent(evento);
}

void FinestraFunzione::closeEvent(QCloseEvent* evento) {
  if (finestre_.ControlloUscita(*this)) {
    evento->ignore();
    return;
  }
  Abbandona();
  evento->accept();
  finestre_.ChiudiFinestra(*this);
}

}  // namespace fenalto::screens
