// One function's window: the keys and the closing that all share.
//
// Enter goes to the next field; Ins presses `PNuovaRiga` or `Nuovo`; Ctrl+Enter `ConfermaRiga` or
// `Conferma`; Ctrl+Canc `EliminaRiga` or `Elimina`; Ctrl+Tab and Ctrl+1..9 turn pages; F5
// `Aggiorna`; Esc steps back (row, record, window). Buttons are found by object name, the first
// that is visible and enabled. A window that a code field has opened by F3 gives the code back when
// it closes.
#pragma once

#include <QWidget>

#include "screens/common/fields/CampoCodice.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/windows/Finestre.h"
#include "screens/common/windows/Tastiera.h"

class QAbstractButton;
class QKeyEvent;
class QMdiSubWindow;

namespace fenalto::screens {

class BarraAnnunci;

class FinestraFunzione : public QWidget, public EsportatoreGriglie, public SeguaceRinvii {
  Q_OBJECT

 public:
  /// `nome` is the function's name in the menu map and the object name of the window.
  FinestraFunzione(const QString& nome, const QString& titolo, Finestre& finestre);

  [[nodiscard]] QString Nome() const { return objectName(); }
  /// What the guide knows it by: the name, "NAME:SCHEDA" where pages have chapters of their own.
  [[nodiscard]] virtual QString NomePerGuida() const { return Nome(); }
  /// The frame that the window lies in; null while it is in none.
  [[nodiscard]] QMdiSubWindow* Cornice() const;
  /// A record of the window is open with changes that would be lost.
  [[nodiscard]] virtual bool InModifica() const { return false; }
  /// Gives the open record and the scratch up, without a question.
  virtual void Abbandona() {}
  /// Turns to the page that a menu entry stands for.
  virtual void ApriScheda(int scheda);
  /// Opens the record of a reference: its code goes into the selector `Rt1`, and `Apri` is pressed.
  virtual void ApriRecord(const Rinvio& rinvio);
  /// Esc: steps back once inside the window; false when there is nothing left but to close.
  virtual bool Indietro() { return false; }
  /// Reads again what the window shows.
  virtual void Aggiorna() {}
  /// Tells what was done at the window's foot, until the next action.
  void Annuncia(const QString& testo);
  void Esporta(Griglia& griglia) override;
  void Segui(const Rinvio& rinvio) override;
  void SeguiPer(const Rinvio& rinvio, CampoCodice& campo) override;

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void closeEvent(QCloseEvent* evento) override;
  void showEvent(QShowEvent* evento) override;

  [[nodiscard]] Ambiente& Sessione() const { return finestre_.Sessione(); }
  [[nodiscard]] Finestre& Gestore() const { return finestre_; }
  [[nodiscard]] Dialoghi& Dialogo() const { return Sessione().Dialogo(); }
  /// Ctrl+Enter: presses `ConfermaRiga` or `Conferma`, or what the window has in their place.
  virtual bool PremiConferma() { return Premi({"ConfermaRiga", "Conferma"}); }
  /// Enter in a control whose next one isn't simply the next of the window; true when it went
  /// there.
  virtual bool Invio(QWidget& /*campo*/) { return false; }
  /// The code that a field which opened this window gets when it closes; empty to leave it as it
  /// is.
  [[nodiscard]] virtual std::string CodiceDaRendere() const { return {}; }
  /// A field has opened this window and waits for a code.
  [[nodiscard]] bool PerUnCampo() const { return richiedente_ != nullptr; }
  /// A field of that caption has opened this window.
  virtual void RichiestaDa(const QString& /*campo*/) {}
  /// Closes the window as Esc does, questions and refusals included.
  void ChiudiDaTastiera();
  /// Presses the first of the named buttons that is visible and enabled.
  bool Premi(std::initializer_list<const char*> nomi);

 private:
  /// A key in one of the window's controls; true when it was taken.
  bool TastoPremuto(QWidget* controllo, const QKeyEvent* tasto);
  /// A press on a button that couldn't get the focus, since a field with an unreadable text has
  /// taken it back: the press must not go through, its release is lost behind the message.
  [[nodiscard]] bool FocoNegato(const QWidget* controllo) const;

  /// Gives the field that opened this window its code and the focus, once this one has gone.
  void Rendi();

  Finestre& finestre_;
  BarraAnnunci* annunci_ = nullptr;
  bool mostrata_ = false;
  SelezioneEntrando selezione_;
  QPointer<CampoCodice> richiedente_;
  QPointer<FinestraFunzione> diChiRichiede_;
};

}  // namespace fenalto::screens
