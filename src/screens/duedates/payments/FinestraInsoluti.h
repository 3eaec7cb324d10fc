// The window "Registrazione insoluti RiBa": the receipt that came back, and what follows from it.
#pragma once

#include "screens/duedates/payments/FinestraScadenzaDigitata.h"

class QLabel;

namespace fenalto::duedates {
class InsolutoRiba;
}

namespace fenalto::screens {

class CampoNumero;
class Griglia;

class FinestraInsoluti : public FinestraScadenzaDigitata {
  Q_OBJECT

 public:
  explicit FinestraInsoluti(Finestre& finestre);
  /// Number of the due date of an unpaid receipt.
  void ApriRecord(const Rinvio& rinvio) override;

 protected:
  void AltriCampi(records::DescrizioneForma& forma) override;
  void AltriRiquadri(QVBoxLayout& colonna) override;
  void AltroPiede(QHBoxLayout& piede) override;
  void ParteCambiata() override;
  void Mostra() override;

 private:
  QWidget* CreaRicevute();
  void Apri();
  [[nodiscard]] duedates::InsolutoRiba& Insoluto() const;

  CampoNumero* selettore_ = nullptr;
  Griglia* ricevute_ = nullptr;
};

}  // namespace fenalto::screens
