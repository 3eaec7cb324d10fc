// Stock of a product at the end of each of the last twelve months.
#pragma once

#include <vector>

#include "screens/common/reports/GraficoBarre.h"
#include "warehouse/stock/PannelloEsistenza.h"

namespace fenalto::screens {

class GraficoEsistenza : public GraficoBarre {
  Q_OBJECT

 public:
  explicit GraficoEsistenza(QWidget* genitore = nullptr);
  void Mostra(const std::vector<warehouse::PuntoEsistenza>& punti, int decimali);
};

}  // namespace fenalto::screens
