#include "screens/common/windows/FinestraFunzione.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTabWidget>
#include <QTreeView>
#include <utility>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/EsportaGriglia.h"
#include "screens/common/windows/BarraAnnunci.h"
#include "screens/common/windows/Scorrevole.h"

namespace fenalto::screens {

FinestraFunzione::FinestraFunzione(const QString& nome, const QString& titolo, Finestre& finestre)
    : finestre_(finestre) {
  setObjectName(nome);
  setWindowTitle(titolo);
  setAttribute(Qt::WA_DeleteOnClose, false);
  qApp->installEventFilter(this);
}

QMdiSubWindow* FinestraFunzione::Cornice() const {
  for (auto* sopra = parentWidget(); sopra != nullptr; sopra = sopra->parentWidget()) {
    if (auto* cornice = qobject_cast<QMdiSubWindow*>(sopra)) return cornice;
  }
  return nullptr;
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

void FinestraFunzione::Annuncia(const QString& testo) {
  if (annunci_ == nullptr) {
    annunci_ = new BarraAnnunci(this);
    if (auto* cornice = Cornice()) {
      static_cast<Scorrevole*>(cornice->widget())->MettiPiede(*annunci_);
    } else if (layout() != nullptr) {
      layout()->addWidget(annunci_);
    }
  }
  annunci_->Annuncia(testo);
}

void FinestraFunzione::Esporta(Griglia& griglia) {
  EsportaGriglia(griglia, Sessione(), windowTitle().toStdString());
}

void FinestraFunzione::Segui(const Rinvio& rinvio) {
  finestre_.Segui(rinvio);
}

void FinestraFunzione::SeguiPer(const Rinvio& rinvio, CampoCodice& campo) {
  const QPointer<CampoCodice> vivo(&campo);
  const QPointer<FinestraFunzione> questa(this);
  auto* aperta = finestre_.Segui(rinvio);
  if (aperta == nullptr || aperta == this || !vivo || !questa) return;
  aperta->richiedente_ = campo.isReadOnly() ? nullptr : &campo;
  aperta->diChiRichiede_ = this;
  const QString nome = campo.accessibleName();
  aperta->RichiestaDa(nome.isEmpty() ? windowTitle() : nome);
}

void FinestraFunzione::Rendi() {
  if (!richiedente_ || !diChiRichiede_) return;
  const std::string codice = CodiceDaRendere();
  QMetaObject::invokeMethod(
      diChiRichiede_.data(),
      [finestra = diChiRichiede_, campo = richiedente_, codice = QString::fromStdString(codice)] {
        if (!finestra || !campo || !campo->isVisibleTo(finestra) || !campo->isEnabled()) return;
        finestra->finestre_.PortaAvanti(*finestra);
        campo->setFocus(Qt::OtherFocusReason);
        campo->Prendi(codice);
      },
      Qt::QueuedConnection);
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
  selezione_.Guarda(oggetto, *evento);
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
  if (GiraPagine(*this, *tasto)) return true;
  if (const auto* albero = qobject_cast<QTreeView*>(controllo);
      albero != nullptr && tasto->matches(QKeySequence::Copy)) {
    CopiaAlbero(*albero);
    return true;
  }
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
  if (Invio(*controllo)) return true;
  if (auto* dopo = DopoInvio(*this, *controllo)) dopo->setFocus(Qt::TabFocusReason);
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
      if (!Indietro()) ChiudiDaTastiera();
      return;
    default:
      break;
  }
  QWidget::keyPressEvent(evento);
}

void FinestraFunzione::ChiudiDaTastiera() {
  if (auto* cornice = Cornice()) cornice->close();
}

void FinestraFunzione::showEvent(QShowEvent* evento) {
  QWidget::showEvent(evento);
  RiprendiMisura(*this);
  if (std::exchange(mostrata_, true)) return;
  // Its parts have been put together: one letter may have been given twice.
  DistribuisciLettere(*this);
}

void FinestraFunzione::closeEvent(QCloseEvent* evento) {
  if (finestre_.ControlloUscita(*this)) {
    evento->ignore();
    return;
  }
  Rendi();
  Abbandona();
  evento->accept();
  finestre_.ChiudiFinestra(*this);
}

}  // namespace fenalto::screens
