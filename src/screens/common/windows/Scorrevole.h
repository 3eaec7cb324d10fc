// What a function window lies in: where there is less room than it needs, it scrolls, so that
// nothing is squeezed over something else.
#pragma once

#include <QScrollArea>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

/// Lays a widget out in the size that it has. A scroller that is being shown gives what lies in it
/// its size at a moment when the toolkit forgets to tell the layout.
void RiprendiMisura(QWidget& piano);

/// What lies in a scroller that isn't a window's.
class PianoScorrevole : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

 protected:
  void showEvent(QShowEvent* evento) override;
};

class Scorrevole : public QScrollArea {
  Q_OBJECT

 public:
  /// Takes the window, whose title it bears.
  explicit Scorrevole(FinestraFunzione& finestra);

  [[nodiscard]] FinestraFunzione& Finestra() const { return finestra_; }
  [[nodiscard]] QSize sizeHint() const override;
  /// Takes what stands below the window, in view wherever it has been scrolled to.
  void MettiPiede(QWidget& piede);

 protected:
  void closeEvent(QCloseEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  /// Brings what has got the focus into view.
  void MostraFoco(QWidget* controllo);
  void AdattaPiede();

  FinestraFunzione& finestra_;
  QWidget* piede_ = nullptr;
};

}  // namespace fenalto::screens
