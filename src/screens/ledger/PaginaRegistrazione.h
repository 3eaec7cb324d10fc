// Second page of the primanota window: the open registration with its rows.
#pragma once

#include "ledger/registrations/Primanota.h"
#include "screens/common/rows/SulCasoUso.h"
#include "screens/common/windows/Finestre.h"

class QCheckBox;

namespace fenalto::screens {

class CampiForma;
class CampoImporto;
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
  [[nodiscard]] QList<QList<QWidget*>> OrdineTesta() const override;

 private:
  [[nodiscard]] static Griglia* CreaGriglia();
  QWidget* CreaTestata();
  QWidget* CreaTotali();
  QWidget* CreaPiede();
  void MostraElencoRighe();
  void MostraTotali();

  CampiForma* testa_;
  QCheckBox* automatiche_;
  PannelloAllegati* allegati_;
  CampoImporto* totDare_;
  CampoImporto* totAvere_;
  CampoImporto* sbilancio_;
};

}  // namespace fenalto::screens
