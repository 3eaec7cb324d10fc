// The row frame of a VAT registration: the fields of one taxable row, while it is open.
#pragma once

#include "screens/common/rows/SulCasoUso.h"
#include "vat/entry/RegistrazioneIva.h"

class QGridLayout;
class QHBoxLayout;

namespace fenalto::screens {

class CampoCodice;
class CampoImporto;
class CampoNumero;
class CampoTesto;

class RiquadroRigaIva : public RiquadroSul<vat::RegistrazioneIva> {
  Q_OBJECT

 public:
  RiquadroRigaIva(vat::RegistrazioneIva& fatture, Finestre& finestre, QWidget* genitore = nullptr);

  void Entra() override;
  void Mostra() override;
  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const override;

 protected:
  bool ConfermaRiga() override;
  void CampoLasciato(const QString& campo, bool cambiato) override;

 private:
  void CreaCampi();
  QGridLayout* DisponiCampi();
  QHBoxLayout* DisponiPulsanti();
  void OrdineTab();
  /// The first field that an accepted row can't be without and is empty; null when none is.
  [[nodiscard]] QWidget* PrimoVuoto() const;
  void Scorpora();

  CampoNumero* posi_;
  CampoCodice* conto_;
  CampoCodice* codIva_;
  CampoTesto* descrizione_;
  CampoCodice* categoria_;
  CampoTesto* commessa_;
  CampoImporto* imponibile_;
  CampoImporto* iva_;
  CampoImporto* ivaInd_;
  CampoImporto* totale_;
  QPushButton* scorpora_;
};

}  // namespace fenalto::screens
