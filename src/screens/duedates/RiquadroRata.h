// The page of the rates of a payment code: the rows, and the fields of the one that is open.
#pragma once

#include <QWidget>

#include "duedates/RateCodice.h"
#include "screens/common/Finestre.h"

class QAbstractButton;
class QGroupBox;
class QPushButton;

namespace fenalto {

class Griglia;
class Legatura;

class RiquadroRata : public QWidget {
  Q_OBJECT

 public:
  RiquadroRata(RateCodice& rate, std::function<Scheda&()> codice, Finestre& finestre,
               QWidget* genitore = nullptr);

  /// Shows the rows, and the open one when there is one.
  void Mostra();
  void SolaLettura(bool attiva);
  /// Takes what is typed and confirms the open row; false when it must stay open (told).
  bool ConfermaAperta();
  /// Whether the open row holds changes.
  [[nodiscard]] bool Modificata() const;
  /// Gives the open row up; false when there was none.
  bool Annulla();

 private:
  void CreaCampi();
  void Disponi();
  void Collega();
  void Apri(int indice);
  void Nuova();
  bool Conferma();
  void Elimina();

  RateCodice& rate_;
  std::function<Scheda&()> codice_;
  Finestre& finestre_;
  Legatura* legatura_;
  Griglia* griglia_;
  QGroupBox* riquadro_;
  QPushButton* nuova_;
  QPushButton* conferma_;
  QPushButton* elimina_;
  QPushButton* annulla_;
  bool solaLettura_ = false;
};

}  // namespace fenalto
