// Cost, fund and residual of an asset by year, those to come included.
#pragma once

#include <vector>

#include "assets/PrevisioneCespite.h"
#include "screens/common/reports/GraficoBarre.h"

namespace fenalto::screens {

class GraficoCespite : public GraficoBarre {
  Q_OBJECT

 public:
  explicit GraficoCespite(QWidget* genitore = nullptr);
  void Mostra(const std::vector<assets::PuntoCespite>& punti);
};

}  // namespace fenalto::screens
