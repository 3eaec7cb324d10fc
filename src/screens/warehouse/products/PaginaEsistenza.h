// Stock of the open product: by warehouse, ordered and committed, costs, its course over a year.
#pragma once

#include <QWidget>
#include <string>

#include "screens/common/windows/Finestre.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace fenalto::screens {

class GraficoEsistenza;

class PaginaEsistenza : public QWidget {
  Q_OBJECT

 public:
  explicit PaginaEsistenza(Finestre& finestre, QWidget* genitore = nullptr);
  /// Reads what there is of a product; nothing for the empty code.
  void Leggi(const std::string& prodotto);
  [[nodiscard]] QPushButton* PulsanteAggiorna() const { return aggiorna_; }

 private:
  Finestre& finestre_;
  std::string prodotto_;
  QListWidget* esistenze_;
  QListWidget* situazione_;
  QLabel* avviso_;
  GraficoEsistenza* grafico_;
  QPushButton* aggiorna_;
};

}  // namespace fenalto::screens
