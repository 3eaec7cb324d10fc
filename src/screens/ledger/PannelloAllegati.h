// The documents attached to a registration.
#pragma once

#include <QGroupBox>

#include "ledger/Primanota.h"
#include "screens/common/Finestre.h"

class QAbstractButton;
class QListWidget;
class QPushButton;

namespace fenalto {

class PannelloAllegati : public QGroupBox {
  Q_OBJECT

 public:
  PannelloAllegati(Primanota& primanota, Finestre& finestre, QWidget* genitore = nullptr);
  void Mostra();
  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const;

 private:
  void Aggiungi();
  void Apri();
  void Togli();
  void Abilita();

  Primanota& primanota_;
  Finestre& finestre_;
  QListWidget* elenco_;
  QPushButton* aggiungi_;
  QPushButton* apri_;
  QPushButton* togli_;
};

}  // namespace fenalto
