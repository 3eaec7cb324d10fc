// The row frame: the fields of one row of the registration, while it is open.
#pragma once

#include "ledger/registrations/Primanota.h"
#include "screens/common/rows/SulCasoUso.h"

class QCheckBox;
class QComboBox;
class QFrame;
class QGridLayout;

namespace fenalto::screens {

class CampoCodice;
class CampoImporto;
class CampoNumero;
class CampoTesto;

class RiquadroRiga : public RiquadroSul<ledger::Primanota> {
  Q_OBJECT

 public:
  RiquadroRiga(ledger::Primanota& primanota, Finestre& finestre, QWidget* genitore = nullptr);

  void Entra() override;
  void Mostra() override;
  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const override;

 protected:
  bool ConfermaRiga() override;
  void CampoLasciato(const QString& campo, bool cambiato) override;

 private:
  void CreaCampi();
  void Disponi();
  QGridLayout* DisponiCampi();
  QWidget* CreaContropartita();
  QFrame* CreaSaldo();
  void OrdineTab();
  /// Gives the account fields the source of the classes in the row.
  void ScegliFonti();
  void VisSaldo();

  CampoNumero* posi_;
  CampoCodice* causale_;
  CampoTesto* descrizione_;
  QComboBox* cfp_;
  CampoCodice* conto_;
  CampoImporto* dare_;
  CampoImporto* avere_;
  QGroupBox* controp_;
  QComboBox* cfpControp_;
  CampoCodice* contoControp_;
  QCheckBox* diversi_;
  CampoCodice* categoria_;
  CampoTesto* commessa_;
  QFrame* saldo_;
  QLabel* valoriSaldo_[4];
  QPushButton* visSaldo_;
  std::string classe_;  ///< that the source of `Conto` is for
  std::string classeControp_;
};

}  // namespace fenalto::screens
