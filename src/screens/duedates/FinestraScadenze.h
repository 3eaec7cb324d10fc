// The window "Archivio Scadenze": any due date found, corrected, added, deleted.
#pragma once

#include "core/session/Scheda.h"
#include "screens/duedates/FinestraConScadenza.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace fenalto::screens {

class GrigliaScadenze;
class Legatura;
class SceltaParte;

class FinestraScadenze : public FinestraConScadenza {
  Q_OBJECT

 public:
  explicit FinestraScadenze(Finestre& finestre);
  ~FinestraScadenze() override;

  /// A due date, or with a class a party: those that it has to pay.
  void ApriRecord(const Rinvio& rinvio) override;

 protected:
  void RileggiScelta() override;
  void FocoScelta() override;

 private:
  QWidget* CreaRicerca();
  QWidget* CreaPiede();
  void Cerca();
  void Apri();

  Scheda ricerca_;
  Legatura* filtri_;
  SceltaParte* parte_;
  QCheckBox* anchePagate_;
  QPushButton* cerca_;
  GrigliaScadenze* griglia_;
  QLabel* trovate_;
  QLineEdit* selettore_;
  QPushButton* apri_;
  QPushButton* nuovo_;
  bool cercato_ = false;  ///< the grid shows what a search has found
};

}  // namespace fenalto::screens
