// The page of what to look at before closing a year.
#pragma once

#include <QWidget>
#include <vector>

#include "ledger/closing/ControlliChiusura.h"
#include "screens/common/windows/Finestre.h"

class QLabel;

namespace fenalto::screens {

class Griglia;

class PaginaControlli : public QWidget {
  Q_OBJECT

 public:
  explicit PaginaControlli(Finestre& finestre);
  /// Looks at the books again.
  void Leggi();

 private:
  void Vai(int riga);

  Finestre& finestre_;
  std::vector<ledger::RilievoChiusura> rilievi_;
  Griglia* griglia_;
  QLabel* esito_;
};

}  // namespace fenalto::screens
