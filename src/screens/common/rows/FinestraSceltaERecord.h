// A window of two pages: one to choose a record or begin a new one, one for the record that is
// open.
//
// The record's page can be turned to only while a record is open. Turning back to the choice, Esc
// and opening another record leave the open one, after the question of `ControlloUscita`.
#pragma once

#include "screens/common/windows/FinestraFunzione.h"

class QTabWidget;

namespace fenalto::screens {

class FinestraSceltaERecord : public FinestraFunzione {
  Q_OBJECT

 public:
  FinestraSceltaERecord(const QString& nome, const QString& titolo, Finestre& finestre);

  void Abbandona() override;
  bool Indietro() override;

 protected:
  /// A record is open.
  [[nodiscard]] virtual bool Aperta() const = 0;
  /// Gives the open record up; its page is out of sight already.
  virtual void ChiudiRecord() = 0;
  /// Esc with no record open; false when the window is to close.
  virtual bool IndietroDaScelta() { return false; }
  /// Where the focus goes after a record was left.
  virtual void FocoScelta() = 0;

  /// Puts the pages into the window, once both are made.
  void Disponi(QWidget* scelta, const QString& titoloScelta, QWidget* record);
  /// A further page, which has nothing to do with the open record and can be turned to at any time.
  void AggiungiPagina(QWidget* pagina, const QString& titolo);
  /// Deletes the pages, out of sight: to be called by a window's destructor, since they look at a
  /// use case that is about to go and nothing is to be read from them any more.
  void TogliPagine();
  /// Turns to the record that was just opened.
  void GiraAlRecord();
  /// Turns to a further page.
  void GiraA(QWidget* pagina);
  /// The caption of the record's page.
  void TitoloRecord(const QString& titolo);
  /// Leaves the open record after its question; false when the user stays in it.
  bool Lascia();

 private:
  void SchedaCambiata(int indice);
  void Gira(int indice);

  QTabWidget* schede_;
  bool girando_ = false;
};

}  // namespace fenalto::screens
