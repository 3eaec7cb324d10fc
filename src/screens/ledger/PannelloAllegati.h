// The documents attached to a registration.
#pragma once

#include <QGroupBox>

#include "ledger/registrations/Primanota.h"
#include "screens/common/windows/Finestre.h"

class QAbstractButton;
class QListWidget;
class QPushButton;

namespace fenalto::screens {

class PannelloAllegati : public QGroupBox {
  Q_OBJECT

 public:
  PannelloAllegati(ledger::Primanota& primanota, Finestre& finestre, QWidget* genitore = nullptr);
  void Mostra();
  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const;

 private:
  void Aggiungi();
  void Apri();
  void Togli();
  void Abilita();

  ledger::Primanota& primanota_;
  Finestre& finestre_;
  QListWidget* elenco_;
  QPushButton* aggiungi_;
  QPushButton* apri_;
  QPushButton* togli_;
};

}  // namespace fenalto::screens
