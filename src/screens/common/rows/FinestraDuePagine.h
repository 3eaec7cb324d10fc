// A window of two pages: one to choose a record or begin a new one, one for the record that is
// open.
//
// The record's page can be turned to only while a record is open. Turning back to the choice, Esc
// and opening another record leave the open one, after the question of `ControlloUscita`. A record
// that was confirmed or deleted goes back to the choice. The window's own class says how a record
// is opened and what the choice shows.
#pragma once

#include "screens/common/windows/FinestraFunzione.h"

class QTabWidget;

namespace fenalto::screens {

class PaginaConRighe;

class FinestraDuePagine : public FinestraFunzione {
  Q_OBJECT

 public:
  FinestraDuePagine(const QString& nome, const QString& titolo, Finestre& finestre);

  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  void ApriRecord(const Rinvio& rinvio) override;
  bool Indietro() override;
  void Aggiorna() override;

 protected:
  bool Invio(QWidget& campo) override;
  /// Opens a record by number, after leaving the open one.
  virtual void Apri(std::int64_t numero) = 0;
  /// Gives the open record up; its page is out of sight already.
  virtual void ChiudiRegistrazione() = 0;
  /// Esc with no record open; false when the window is to close.
  virtual bool IndietroDaScelta() { return false; }
  /// Where the focus goes after a record was left.
  virtual void FocoScelta() = 0;
  virtual void AggiornaScelta() = 0;
  /// The open record was confirmed with that number, or deleted (0): the choice is in sight again.
  virtual void DopoRegistrazione(std::int64_t numero) = 0;

  /// A record is open.
  [[nodiscard]] bool Aperta() const;
  /// Puts the pages into the window, once both are made.
  void Disponi(QWidget* scelta, const QString& titoloScelta, PaginaConRighe* registrazione);
  /// Deletes the pages, out of sight: to be called by a window's destructor, since they look at a
  /// use case that is about to go and nothing is to be read from them any more.
  void TogliPagine();
  /// Turns to the record that was just opened, which takes the focus.
  void EntraInRegistrazione();
  /// The caption of the record's page; empty for the one that it has when none is open.
  void TitoloRegistrazione(const QString& titolo);
  /// Leaves the open record after its question; false when the user stays in it.
  bool Lascia();

 private:
  void SchedaCambiata(int indice);
  void Gira(int indice);
  void TornaAllaScelta(std::int64_t numero);

  QTabWidget* schede_;
  PaginaConRighe* pagina_ = nullptr;
  bool girando_ = false;
};

}  // namespace fenalto::screens
