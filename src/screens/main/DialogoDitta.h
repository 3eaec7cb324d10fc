// The choice of company and year, or of a company to be made.
#pragma once

#include <QDialog>
#include <functional>
#include <optional>

#include "core/session/Porte.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace fenalto::screens {

class DialogoDitta : public QDialog {
  Q_OBJECT

 public:
  /// `ditte` in the order shown; `anniDi` reads the years of one, or an error text.
  DialogoDitta(const std::vector<DittaTrovata>& ditte,
               std::function<std::vector<int>(const std::string&, std::string&)> anniDi,
               QWidget* genitore);
  [[nodiscard]] SceltaDitta Scelta() const;

 private:
  void MostraAnni();
  void Nuova();
  std::vector<DittaTrovata> trovate_;
  std::function<std::vector<int>(const std::string&, std::string&)> anniDi_;
  QListWidget* ditte_;
  QListWidget* anni_;
  QLabel* avviso_;
  QPushButton* apri_;
  std::optional<SceltaDitta> nuova_;
};

}  // namespace fenalto::screens
