// First page of the VAT registrations: the register, what is on it, and how to begin.
#pragma once

#include <QWidget>

#include "screens/common/windows/Finestre.h"
#include "vat/entry/LettoreFatture.h"
#include "vat/entry/RegistrazioneIva.h"

class QAbstractButton;
class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;

namespace fenalto::screens {

class CampoCodice;
class CampoNumero;
class ElencoCercato;
class SelettoreArticolo;

class PaginaRegistro : public QWidget {
  Q_OBJECT

 public:
  PaginaRegistro(vat::RegistrazioneIva& fatture, Finestre& finestre, QWidget* genitore = nullptr);

  /// Shows the register that is chosen and reads its list again.
  void Mostra();
  /// Puts a number into the selector; 0 empties it.
  void Seleziona(std::int64_t numero);
  void FocoRegistro();
  void FocoSelettore();
  void FocoNuovo();

 signals:
  void ApriChiesto(qint64 numero);
  void NuovoChiesto();
  /// Another register was chosen.
  void RegistroCambiato();

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  QWidget* CreaSopra();
  QGroupBox* CreaElenco();
  QGroupBox* CreaNuova();
  QGroupBox* CreaOpzioni();
  QGroupBox* CreaRiprotocollo();
  void ScegliRegistro();
  void MostraRegistro();
  void Riprotocolla();
  void Esporta();

  vat::RegistrazioneIva& fatture_;
  Finestre& finestre_;
  CampoCodice* registro_;
  SelettoreArticolo* selettore_;
  QLabel* titoloNuova_;
  QPushButton* nuovo_;
  QCheckBox* verificaTotale_;
  QCheckBox* verificaFatForn_;
  QGroupBox* riprotocollo_;
  CampoNumero* daNProt_;
  CampoNumero* aNProt_;
  QPushButton* riprotocolla_;
  QGroupBox* riquadroElenco_;
  vat::LettoreFatture lettore_;
  ElencoCercato* elenco_;
  QPushButton* esporta_;
  QList<QAbstractButton*> pulsanti_;  ///< that can be pressed, the more used first
  bool scegliendo_ = false;
};

}  // namespace fenalto::screens
