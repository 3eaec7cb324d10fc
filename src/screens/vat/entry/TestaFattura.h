// The head of a VAT registration: register, numbers, dates, party, payment.
#pragma once

#include <QWidget>

#include "screens/common/windows/Finestre.h"
#include "vat/entry/RegistrazioneIva.h"

class QCheckBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;

namespace fenalto::screens {

class CampoCodice;
class CampoData;
class CampoNumero;
class CampoTesto;
class Legatura;

class TestaFattura : public QWidget {
  Q_OBJECT

 public:
  /// Binds its controls to the head through `legatura`.
  TestaFattura(vat::RegistrazioneIva& fatture, Finestre& finestre, Legatura& legatura,
               QWidget* genitore = nullptr);
  /// Shows what the register's type and the record allow; the values are shown by the binding.
  void Mostra();
  void FocoData();
  /// The controls typed into for every document, in the order of the paper.
  [[nodiscard]] QList<QWidget*> Ordine() const;
  /// Those seldom touched.
  [[nodiscard]] QList<QWidget*> Rari() const;

 private:
  void CreaCampi(Legatura& legatura);
  QGridLayout* Disponi();
  QHBoxLayout* DisponiNumeri();
  QHBoxLayout* DisponiDocumento();
  void ScegliParte();

  vat::RegistrazioneIva& fatture_;
  Finestre& finestre_;
  QLabel* riva_;
  QLabel* rivaDescrizione_;
  CampoTesto* nProt_;
  QLabel* probabileNProt_;
  CampoNumero* numDoc_;
  QLabel* probabileNumDoc_;
  CampoData* data_;
  QLabel* didascaliaParte_;
  CampoCodice* parte_;
  CampoTesto* nFat_;
  QLabel* didascaliaDtFat_;
  CampoData* dtFat_;
  QLabel* didascaliaIncasso_;
  CampoData* dtIncasso_;
  CampoCodice* pagamento_;
  QLabel* nota_;
  CampoTesto* descrizione_;
  QCheckBox* ep_;
  QCheckBox* variazione_;
  std::string classe_;  ///< that the source of `Contox` is for
};

}  // namespace fenalto::screens
