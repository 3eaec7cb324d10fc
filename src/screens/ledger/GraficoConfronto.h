// Bars of the costs and revenues of two periods, month by month.
#pragma once

#include <QWidget>
#include <vector>

#include "ledger/BilancioVerifica.h"

namespace fenalto {

class GraficoConfronto : public QWidget {
  Q_OBJECT

 public:
  explicit GraficoConfronto(QWidget* genitore = nullptr);
  /// `decimali` is that of the amounts in tooltips; the captions name the two periods.
  void Mostra(std::vector<MeseConfronto> mesi, const QString& periodoA, const QString& periodoB,
              int decimali);
  /// Shows a text instead of the bars.
  void MostraTesto(const QString& testo);

  [[nodiscard]] QSize sizeHint() const override { return {900, 260}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {480, 150}; }

 protected:
  void paintEvent(QPaintEvent* evento) override;
  bool event(QEvent* evento) override;

 private:
  enum Serie { kCostiA, kCostiB, kRicaviA, kRicaviB, kSerie };
  [[nodiscard]] QColor Colore(int serie) const;
  [[nodiscard]] QRect Area() const;
  [[nodiscard]] QString Riassunto(const MeseConfronto& mese) const;
  void DisegnaScala(QPainter& pittore, const QRect& area, double minimo, double massimo,
                    double passo) const;
  void DisegnaBarre(QPainter& pittore, const QRect& area, double minimo, double massimo) const;
  void DisegnaLegenda(QPainter& pittore) const;

  std::vector<MeseConfronto> mesi_;
  QString periodi_[2];
  QString testo_;
  int decimali_ = 2;
};

}  // namespace fenalto
