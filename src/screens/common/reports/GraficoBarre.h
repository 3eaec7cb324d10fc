// Bars of amounts in groups side by side (months, quarters), told apart from the ground on light
// and dark palettes.
#pragma once

#include <QColor>
#include <QWidget>
#include <vector>

#include "core/values/Importo.h"

namespace fenalto::screens {

class GraficoBarre : public QWidget {
  Q_OBJECT

 public:
  struct Serie {
    QString nome;
    QColor chiaro;  ///< on a light palette
    QColor scuro;   ///< on a dark one
  };
  /// Bars beside each other over one name; `riassunto` tells their amounts in words.
  struct Gruppo {
    QString nome;
    std::vector<Importo> valori;  ///< one a series
    QString riassunto;
  };
  /// A line of the legend: some series by index, and what they have in common.
  struct RigaLegenda {
    std::vector<std::size_t> serie;
    QString testo;
  };

  explicit GraficoBarre(const QString& nome, QWidget* genitore = nullptr);
  /// Shows the groups from left to right over the whole width.
  void Mostra(std::vector<Serie> serie, std::vector<Gruppo> gruppi,
              std::vector<RigaLegenda> legenda);
  /// Shows a text instead of the bars.
  void MostraTesto(const QString& testo);

  [[nodiscard]] QSize sizeHint() const override { return {900, 150}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {320, 110}; }

 protected:
  void paintEvent(QPaintEvent* evento) override;
  bool event(QEvent* evento) override;

 private:
  [[nodiscard]] QColor Colore(std::size_t serie) const;
  [[nodiscard]] QRect Area() const;
  void DisegnaScala(QPainter& pittore, const QRect& area, double minimo, double massimo,
                    double passo) const;
  void DisegnaBarre(QPainter& pittore, const QRect& area, double minimo, double massimo) const;
  void DisegnaLegenda(QPainter& pittore) const;

  std::vector<Serie> serie_;
  std::vector<Gruppo> gruppi_;
  std::vector<RigaLegenda> legenda_;
  QString testo_;
};

}  // namespace fenalto::screens
