// What the windows of the due dates' archive share: a page that finds a due date and a page for the
// one that is open, which can be turned to while one is.
#pragma once

#include "duedates/schedules/ArchivioScadenze.h"
#include "screens/common/windows/FinestraFunzione.h"

class QTabWidget;

namespace fenalto::screens {

class RiquadroScadenza;

class FinestraConScadenza : public FinestraFunzione {
  Q_OBJECT

 public:
  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  bool Indietro() override;
  void Aggiorna() override;

 protected:
  FinestraConScadenza(const QString& nome, const QString& titolo,
                      duedates::ArchivioScadenze::Uso uso, Finestre& finestre);

  /// Puts the pages into the window.
  void Disponi(QWidget* scelta, const QString& titoloScelta);
  /// Deletes the pages, out of sight: to be called by a window's destructor, so that nothing is
  /// read from a field any more.
  void TogliPagine();
  /// Reads again what the first page shows.
  virtual void RileggiScelta() = 0;
  /// Where the focus goes when a due date was left.
  virtual void FocoScelta() = 0;

  /// Opens the due date of that number, after leaving the open one; false when there is none, or
  /// the user stays in the open one.
  bool ApriScadenza(std::int64_t numero);
  void NuovaScadenza(const std::vector<Coppia>& valori = {});
  /// Leaves the open one after its question; false when the user stays in it.
  bool Lascia();
  [[nodiscard]] duedates::ArchivioScadenze& Caso() { return caso_; }

 private:
  void SchedaCambiata(int indice);
  void Gira(int indice);
  void MostraAperta();
  void MostraTitolo();
  void VediRegistrazione();

  QString titolo_;
  duedates::ArchivioScadenze caso_;
  QTabWidget* schede_;
  RiquadroScadenza* riquadro_;
  bool girando_ = false;
};

}  // namespace fenalto::screens
