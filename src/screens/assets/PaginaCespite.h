// The page of an open asset: its card's head with the chart, its rows, what follows from them, the
// assets that refer to it.
#pragma once

#include "assets/Cespiti.h"
#include "screens/common/rows/SulCasoUso.h"

class QTabWidget;

namespace fenalto::screens {

class CampiForma;
class CampoNote;
class GraficoCespite;

class PaginaCespite : public PaginaSul<assets::Cespiti> {
  Q_OBJECT

 public:
  PaginaCespite(assets::Cespiti& cespiti, Finestre& finestre, QWidget* genitore = nullptr);

  void Entra() override;
  void Mostra() override;

 signals:
  /// Another asset of the list of those that refer to this one.
  void CorrelatoScelto(qint64 nCesp);

 protected:
  void ApriRiga(int indice) override;
  void NuovaRiga() override;
  std::optional<std::int64_t> ConfermaRegistrazione() override;
  bool EliminaRegistrazione() override;
  void FocoData() override;
  [[nodiscard]] QList<QList<QWidget*>> OrdineTesta() const override;

 private:
  [[nodiscard]] static Griglia* CreaGriglia();
  QWidget* CreaTestata();
  QWidget* CreaScheda();
  QWidget* CreaPiede();
  void MostraElencoRighe();
  void MostraScheda();
  void MostraGrafico();
  void MostraCorrelati();

  CampiForma* testa_;
  GraficoCespite* grafico_;
  QTabWidget* schede_;
  Griglia* scheda_;
  Griglia* correlati_;
  CampoNote* note_;
};

}  // namespace fenalto::screens
