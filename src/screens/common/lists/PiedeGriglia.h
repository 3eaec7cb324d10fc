// The line below a grid where totals stand, each under its column.
#pragma once

#include <QWidget>
#include <utility>
#include <vector>

class QLabel;

namespace fenalto::screens {

class Griglia;

class PiedeGriglia : public QWidget {
  Q_OBJECT

 public:
  /// `titolo` stands at the left. The foot goes into the layout right below the grid.
  PiedeGriglia(Griglia& griglia, const QString& titolo);

  /// Takes a control that shows the total of a column.
  void Metti(int colonna, QWidget* totale);

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;

 private:
  void Allinea();

  Griglia& griglia_;
  QLabel* titolo_;
  std::vector<std::pair<int, QWidget*>> totali_;
};

}  // namespace fenalto::screens
