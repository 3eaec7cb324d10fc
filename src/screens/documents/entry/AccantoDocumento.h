// Beside the open row: how much there is of its product, what it cost, what the row earns.
#pragma once

#include <QWidget>
#include <optional>

#include "documents/entry/FattureCli.h"
#include "screens/common/windows/Finestre.h"

class QLabel;

namespace fenalto::screens {

class AccantoDocumento : public QWidget {
  Q_OBJECT

 public:
  explicit AccantoDocumento(Finestre& finestre, QWidget* genitore = nullptr);
  /// Nothing is told of a row without a product.
  void Mostra(const std::optional<documents::AccantoRiga>& accanto);

 private:
  int decQ_;
  int decP_;
  int moneta_;
  QWidget* prodotto_;  ///< what is known of it
  QLabel* esistenza_;
  QLabel* impegnato_;
  QLabel* disponibile_;
  QLabel* ultimoCosto_;
  QWidget* guadagno_;
  QLabel* margine_;
};

}  // namespace fenalto::screens
