// Bars of the costs and revenues of two periods, month by month.
#pragma once

#include <vector>

#include "ledger/statements/BilancioVerifica.h"
#include "screens/common/reports/GraficoBarre.h"

namespace fenalto::screens {

class GraficoConfronto : public GraficoBarre {
  Q_OBJECT

 public:
  explicit GraficoConfronto(QWidget* genitore = nullptr);
  /// `decimali` is that of the amounts in tooltips; the captions name the two periods.
  void Mostra(const std::vector<ledger::MeseConfronto>& mesi, const QString& periodoA,
              const QString& periodoB, int decimali);
};

}  // namespace fenalto::screens
