// What the registration comes to, live: its totals, the check against the total on the paper, and
// the double entry that a confirmation would write.
#pragma once

#include <QWidget>

#include "ledger/accounts/RicercaRegistrazioni.h"
#include "screens/common/windows/Finestre.h"
#include "vat/entry/RegistrazioneIva.h"

class QGroupBox;
class QLabel;

namespace fenalto::screens {

class CampoImporto;
class Griglia;
class Legatura;

class PannelloContabile : public QWidget {
  Q_OBJECT

 public:
  /// Binds the control total to the head through `legatura`.
  PannelloContabile(vat::RegistrazioneIva& fatture, Finestre& finestre, Legatura& legatura,
                    QWidget* genitore = nullptr);
  void Mostra();
  [[nodiscard]] CampoImporto* TotaleDigitato() const { return digitato_; }
  /// Forgets the descriptions of accounts read so far.
  void Dimentica() { descrizioni_.Dimentica(); }

 private:
  QGroupBox* CreaTotali();
  QGroupBox* CreaScrittura();
  void MostraTotali();
  void MostraScrittura();
  /// The difference follows what is typed, key by key.
  void Digitato();

  vat::RegistrazioneIva& fatture_;
  int decimali_;
  QLabel* totImponibile_;
  QLabel* totIva_;
  QLabel* totIvaInd_;
  QLabel* totFat_;
  CampoImporto* digitato_;
  QLabel* differenza_;
  Griglia* scrittura_;
  QLabel* quadratura_;
  ledger::DescrizioniConti descrizioni_;
};

}  // namespace fenalto::screens
