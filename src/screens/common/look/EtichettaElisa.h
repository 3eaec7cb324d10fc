// A label that ends with an ellipsis where it has no room for its text, and then tells the whole of
// it in its tooltip.
#pragma once

#include <QLabel>

namespace fenalto::screens {

class EtichettaElisa : public QLabel {
  Q_OBJECT

 public:
  explicit EtichettaElisa(QWidget* genitore = nullptr);
  /// Whether the text is longer than the label.
  [[nodiscard]] bool Tagliata() const;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* evento) override;
  bool event(QEvent* evento) override;
};

}  // namespace fenalto::screens
