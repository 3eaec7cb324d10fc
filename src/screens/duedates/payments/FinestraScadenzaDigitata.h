// The windows of deposits and of unpaid receipts: party, due date, registration, `Conferma`.
#pragma once

#include <memory>

#include "core/records/DescrizioneForma.h"
#include "screens/common/windows/FinestraFunzione.h"

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace fenalto::duedates {
class ScadenzaDigitata;
}

namespace fenalto::screens {

class CampiForma;
class Legatura;
class SceltaParte;

class FinestraScadenzaDigitata : public FinestraFunzione {
  Q_OBJECT

 public:
  ~FinestraScadenzaDigitata() override;

  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  bool Indietro() override;

 protected:
  /// `numero` is that of the settings' keys.
  FinestraScadenzaDigitata(const QString& nome, const QString& titolo, int numero,
                           std::unique_ptr<duedates::ScadenzaDigitata> caso, Finestre& finestre);

  /// Fields of a derived window, in frames that stand before that of the registration.
  virtual void AltriCampi(records::DescrizioneForma& /*forma*/) {}
  /// Lays the window out; frames of a derived window go to `AltriRiquadri`.
  void Disponi();
  virtual void AltriRiquadri(QVBoxLayout& /*colonna*/) {}
  /// What stands at the foot beside `Conferma`.
  virtual void AltroPiede(QHBoxLayout& /*piede*/) {}
  /// Another party was chosen.
  virtual void ParteCambiata() {}
  /// The due date is shown, a new one or as it was changed.
  virtual void Mostra();

  [[nodiscard]] duedates::ScadenzaDigitata& Caso() const { return *caso_; }
  [[nodiscard]] CampiForma& Campi() { return *campi_; }
  [[nodiscard]] SceltaParte& Parte() { return *parte_; }

 private:
  void Collega();
  void Nuovo();
  void Conferma();
  void VaiA(const std::string& campo);

  int numero_;
  std::unique_ptr<duedates::ScadenzaDigitata> caso_;
  Legatura* dati_;
  Legatura* impostazioni_;
  CampiForma* campi_ = nullptr;
  SceltaParte* parte_;
  QPushButton* nuovo_;
  QPushButton* conferma_;
};

}  // namespace fenalto::screens
