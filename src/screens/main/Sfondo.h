// The background behind the function windows: a gradient of 256 bands and links to the help.
#pragma once

#include <QMdiArea>
#include <QWidget>

namespace fenalto::screens {

/// Paints the bands of the background, from the window's colour to a touch of the accent.
void DipingiBande(QWidget& dove);

/// The area of the function windows, which looks the same when the background is unloaded.
class AreaFinestre : public QMdiArea {
  Q_OBJECT

 public:
  using QMdiArea::QMdiArea;

 protected:
  void paintEvent(QPaintEvent* evento) override;
};

class Sfondo : public QWidget {
  Q_OBJECT

 public:
  /// Covers `genitore` and follows its size.
  explicit Sfondo(QWidget* genitore);

 signals:
  void GuidaRapida();
  void ManualeContabilita();
  void VideoCorsi();

 protected:
  void paintEvent(QPaintEvent* evento) override;
  bool eventFilter(QObject* oggetto, QEvent* evento) override;
};

}  // namespace fenalto::screens
