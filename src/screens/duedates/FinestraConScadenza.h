// What the windows of the due dates' archive share: a page that finds a due date and a page for the
// one that is open, which can be turned to while one is.
#pragma once

#include "duedates/schedules/ArchivioScadenze.h"
#include "screens/common/rows/FinestraSceltaERecord.h"

namespace fenalto::screens {

class RiquadroScadenza;

class FinestraConScadenza : public FinestraSceltaERecord {
  Q_OBJECT

 public:
  [[nodiscard]] bool InModifica() const override;
  void Aggiorna() override;

 protected:
  FinestraConScadenza(const QString& nome, const QString& titolo,
                      duedates::ArchivioScadenze::Uso uso, Finestre& finestre);

  /// Puts the pages into the window.
  void Disponi(QWidget* scelta, const QString& titoloScelta);
  void TogliPagine();
  /// Reads again what the first page shows.
  virtual void RileggiScelta() = 0;
  [[nodiscard]] bool Aperta() const override { return caso_.Aperta(); }
  void ChiudiRecord() override;

  /// Opens the due date of that number, after leaving the open one; false when there is none, or
  /// the user stays in the open one.
  bool ApriScadenza(std::int64_t numero);
  void NuovaScadenza(const std::vector<Coppia>& valori = {});
  [[nodiscard]] duedates::ArchivioScadenze& Caso() { return caso_; }

 private:
  void MostraAperta();
  void MostraTitolo();
  void VediRegistrazione();

  QString titolo_;
  duedates::ArchivioScadenze caso_;
  RiquadroScadenza* riquadro_;
};

}  // namespace fenalto::screens
