// The background behind the function windows: a gradient of 256 bands and links to the help.
#pragma once

#include <QWidget>

namespace fenalto {

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

}  // namespace fenalto
