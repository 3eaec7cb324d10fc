// Bars of the costs and revenues of two periods, month by month.
#pragma once

#include <vector>

#include "ledger/BilancioVerifica.h"
#include "screens/common/GraficoBarre.h"

namespace fenalto {

class GraficoConfronto : public GraficoBarre {
  Q_OBJECT

 public:
  explicit GraficoConfronto(QWidget* genitore = nullptr);
  /// `decimali` is that of the amounts in tooltips; the captions name the two periods.
  void Mostra(const std::vector<MeseConfronto>& mesi, const QString& periodoA,
              const QString& periodoB, int decimali);
};

}  // namespace fenalto
