// Second page of the primanota window: the open registration with its rows.
#pragma once

#include "ledger/registrations/Primanota.h"
#include "screens/common/rows/SulCasoUso.h"
#include "screens/common/windows/Finestre.h"

class QCheckBox;
class QGridLayout;

namespace fenalto::screens {

class CampoData;
class CampoImporto;
class CampoNumero;
class CampoTesto;
class PannelloAllegati;

class PaginaRegistrazione : public PaginaSul<ledger::Primanota> {
  Q_OBJECT

 public:
  PaginaRegistrazione(ledger::Primanota& primanota, Finestre& finestre,
                      QWidget* genitore = nullptr);

  void Mostra() override;

 protected:
  void ApriRiga(int indice) override;
  void NuovaRiga() override;
  std::optional<std::int64_t> ConfermaRegistrazione() override;
  bool EliminaRegistrazione() override;
  void FocoData() override;

 private:
  void CreaCampi();
  [[nodiscard]] static Griglia* CreaGriglia();
  QWidget* CreaTestata();
  QGridLayout* DisponiTestata();
  QWidget* CreaPiede();
  void MostraElencoRighe();
  void MostraTotali();

  CampoNumero* numero_;
  QLabel* probabileDidascalia_;
  QLabel* probabile_;
  CampoData* data_;
  QLabel* anno_;
  QLabel* avvisoData_;
  QCheckBox* automatiche_;
  QCheckBox* duplicabile_;
  CampoTesto* descrizione_;
  PannelloAllegati* allegati_;
  CampoImporto* totDare_;
  CampoImporto* totAvere_;
  CampoImporto* sbilancio_;
};

}  // namespace fenalto::screens
