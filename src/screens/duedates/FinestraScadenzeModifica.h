// The window of the due dates of one document, with its party's deposits and what the document
// prints of the payment.
#pragma once

#include "duedates/schedules/ScadenzeDocumento.h"
#include "screens/duedates/FinestraConScadenza.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace fenalto::screens {

class GrigliaScadenze;

class FinestraScadenzeModifica : public FinestraConScadenza {
  Q_OBJECT

 public:
  explicit FinestraScadenzeModifica(Finestre& finestre);
  ~FinestraScadenzeModifica() override;

  void ApriRecord(const Rinvio& rinvio) override;

 protected:
  void RileggiScelta() override;
  void FocoScelta() override;

 private:
  struct TestoScelto {
    QRadioButton* scelta;
    QLabel* testo;
  };
  QWidget* CreaTesta();
  QWidget* CreaAnticipi();
  QWidget* CreaStampa();
  void Collega();
  void Mostra();
  /// Opens what was typed: "2024|12", year and number of the registration; "12" is of the selected
  /// year.
  void ApriDigitata(const std::string& testo);
  void Scegli(std::int64_t numero);
  void MemorizzaStampa();

  duedates::ScadenzeDocumento documento_;
  QLineEdit* selettore_;
  QLabel* descrizione_;
  GrigliaScadenze* griglia_;
  QLabel* totale_;
  GrigliaScadenze* anticipi_;
  QGroupBox* riquadroAnticipi_ = nullptr;
  QGroupBox* stampa_ = nullptr;
  std::vector<TestoScelto> testi_;
  QPushButton* memorizza_;
  QPushButton* apri_;
  QPushButton* nuovo_;
};

}  // namespace fenalto::screens
