// What the printed reports of due dates have in common: the choice of class, range of parties,
// range of dates, the paid ones too.
#pragma once

#include "duedates/reports/LetturaScadenze.h"
#include "screens/common/reports/FinestraRapporto.h"

namespace fenalto::screens {

class FinestraRapportoScadenze : public FinestraRapporto {
  Q_OBJECT

 protected:
  FinestraRapportoScadenze(const QString& nome, const QString& titolo, Finestre& finestre);

  /// The frame with `CFPx`, `DaCliFor` and `ACliFor`.
  static records::DescrizioneForma FormaParti(const std::string& titolo);
  /// The same with `DaData`, `AData` and `AnchePagate`.
  static records::DescrizioneForma FormaScadenze();
  /// A field of that frame.
  static records::CampoForma NelRiquadro(records::CampoForma&& campo);
  [[nodiscard]] duedates::SceltaScadenze Scadenze() const;

  records::StatoCampo Stato(const std::string& campo) override;
  void Cambiato(const std::string& campo) override;

 private:
  std::string classe_;  ///< that the codes are of
};

}  // namespace fenalto::screens
