// First page of the primanota window: which registration to open, or how to start a new one.
#pragma once

#include <QWidget>

#include "ledger/registrations/LettoreArticoli.h"
#include "ledger/registrations/Primanota.h"
#include "screens/common/windows/Finestre.h"

class QAbstractButton;
class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace fenalto::screens {

class ElencoCercato;
class Griglia;
class SelettoreArticolo;

class PaginaScelta : public QWidget {
  Q_OBJECT

 public:
  explicit PaginaScelta(Finestre& finestre, QWidget* genitore = nullptr);

  /// Reads the list again.
  void Aggiorna();
  /// Puts a number into the selector; 0 empties it.
  void Seleziona(std::int64_t numero);
  void FocoSelettore();
  void FocoNuovo();
  /// Shows the models to choose from; says so when there is none.
  void MostraModelli(const std::vector<ledger::ModelloPrimanota>& modelli);
  /// Hides the models; false when they weren't shown.
  bool ChiudiModelli();

 signals:
  void ApriChiesto(qint64 numero);
  void NuovoChiesto();
  void ModelliChiesti();
  void ModelloScelto(qint64 articolo, int anno);
  /// Closings and openings run alone: the window is to close first.
  void ChiusureChieste();

 private:
  QWidget* CreaSelettore();
  QGroupBox* CreaElenco();
  QGroupBox* CreaModi();
  QGroupBox* CreaModelli();
  QGroupBox* CreaCorrelate();

  Finestre& finestre_;
  SelettoreArticolo* selettore_;
  QPushButton* nuovo_;
  ledger::LettoreArticoli lettore_;
  ElencoCercato* elenco_;
  Griglia* modelli_;
  QGroupBox* riquadroElenco_;
  QGroupBox* riquadroModelli_;
  QLabel* senzaModelli_;
  QList<QAbstractButton*> pulsanti_;  ///< that can be pressed, the more used first
};

}  // namespace fenalto::screens
