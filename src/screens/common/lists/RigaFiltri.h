// One small field above each column of a grid, that narrows its rows.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

class QLineEdit;

namespace fenalto::screens {

class Griglia;

class RigaFiltri : public QWidget {
  Q_OBJECT

 public:
  /// `nomi` are the columns' fields; each filter bears "Filtro" and the field's name.
  RigaFiltri(Griglia& griglia, const std::vector<std::string>& nomi);
  /// One text a column.
  [[nodiscard]] std::vector<std::string> Testi() const;
  [[nodiscard]] bool Vuota() const;
  void Svuota();
  [[nodiscard]] const std::vector<QLineEdit*>& Campi() const { return campi_; }

 signals:
  void Cambiata();

 protected:
  void resizeEvent(QResizeEvent* evento) override;
  void showEvent(QShowEvent* evento) override;

 private:
  /// Puts each field above its column.
  void Allinea();
  Griglia& griglia_;
  std::vector<QLineEdit*> campi_;
};

}  // namespace fenalto::screens
