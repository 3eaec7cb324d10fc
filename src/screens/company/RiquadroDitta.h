// The head of the settings' page: the company's name, another name for it, and the way to the bin.
// Tab passes it by, for the fields below are typed into more often; its buttons have their letters,
// and "Modifica nome" asks for the name that isn't in its field.
#pragma once

#include <QWidget>
#include <functional>

#include "screens/common/windows/Finestre.h"

class QLabel;
class QLineEdit;

namespace fenalto::screens {

class RiquadroDitta : public QWidget {
  Q_OBJECT

 public:
  explicit RiquadroDitta(Finestre& finestre);
  /// Shows the company that is open.
  void Mostra();
  /// Asked before the name is changed: false when something typed would be lost.
  std::function<bool()> puoCambiare;

 signals:
  /// The company has another name.
  void NomeCambiato();

 private:
  void ModificaNome();
  void Elimina();

  Finestre& finestre_;
  QLabel* ditta_;
  QLineEdit* nuovo_;
};

}  // namespace fenalto::screens
