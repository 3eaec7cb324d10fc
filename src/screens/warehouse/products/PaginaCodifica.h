// The choice of automatic coding of products.
#pragma once

#include <QWidget>

#include "screens/common/windows/Finestre.h"

class QButtonGroup;

namespace fenalto::screens {

class PaginaCodifica : public QWidget {
  Q_OBJECT

 public:
  explicit PaginaCodifica(Finestre& finestre, QWidget* genitore = nullptr);

 protected:
  void showEvent(QShowEvent* evento) override;

 private:
  void Mostra();
  void Conferma();

  Finestre& finestre_;
  QButtonGroup* cifre_;  ///< identities are the digits
};

}  // namespace fenalto::screens
