// A window of two pages whose record is a registration.
//
// A registration that was confirmed or deleted goes back to the choice. The window's own class says
// how one is opened and what the choice shows.
#pragma once

#include "screens/common/rows/FinestraSceltaERecord.h"

namespace fenalto::screens {

class PaginaConRighe;

class FinestraDuePagine : public FinestraSceltaERecord {
  Q_OBJECT

 public:
  using FinestraSceltaERecord::FinestraSceltaERecord;

  [[nodiscard]] bool InModifica() const override;
  void ApriRecord(const Rinvio& rinvio) override;
  bool Indietro() override;
  void Aggiorna() override;

 protected:
  void showEvent(QShowEvent* evento) override;
  bool Invio(QWidget& campo) override;
  /// Opens a record by number, after leaving the open one.
  virtual void Apri(std::int64_t numero) = 0;
  virtual void AggiornaScelta() = 0;
  /// Goes on with what a stopped program left unconfirmed: asked once, when the window has come up
  /// and nothing was opened in it. True when the record is open and shown.
  virtual bool Riprendi() { return false; }
  /// The open record was confirmed with that number, or deleted (0): the choice is in sight again.
  virtual void DopoRegistrazione(std::int64_t numero) = 0;
  [[nodiscard]] bool Aperta() const override;

  /// Puts the pages into the window, once both are made.
  void Disponi(QWidget* scelta, const QString& titoloScelta, PaginaConRighe* registrazione);
  void TogliPagine();
  /// Turns to the record that was just opened, which takes the focus.
  void EntraInRegistrazione();
  /// The caption of the record's page; empty for the one that it has when none is open.
  void TitoloRegistrazione(const QString& titolo);

 private:
  void TornaAllaScelta(std::int64_t numero);

  PaginaConRighe* pagina_ = nullptr;
  bool chiesto_ = false;  ///< Riprendi was called
};

}  // namespace fenalto::screens
