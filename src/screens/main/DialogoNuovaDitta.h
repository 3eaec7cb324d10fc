// Name and first year of a company to be made from the model company, before any is open.
#pragma once

#include <QDialog>

#include "core/session/Porte.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace fenalto::screens {

class DialogoNuovaDitta : public QDialog {
  Q_OBJECT

 public:
  /// `ditte` are those that there are, whose names are taken.
  DialogoNuovaDitta(const std::vector<DittaTrovata>& ditte, QWidget* genitore);
  [[nodiscard]] SceltaDitta Scelta() const;
  /// Refuses a name that isn't one or is taken, and says why.
  void accept() override;

 private:
  std::vector<DittaTrovata> ditte_;
  QLineEdit* nome_;
  QSpinBox* anno_;
  QCheckBox* trimestrale_;
  QLabel* avviso_;
};

}  // namespace fenalto::screens
