// The background behind the function windows: a gradient of 256 bands, on it the start page and
// links to the help.
#pragma once

#include <QMdiArea>
#include <QWidget>

#include "screens/common/windows/Finestre.h"

class QPushButton;

namespace fenalto::screens {

class PaginaIniziale;

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
  Sfondo(Finestre& finestre, QWidget* genitore);

  /// The user comes back to it: the start page is read again and has the focus.
  void Torna();
  /// The link is there only while the address of the courses is set.
  void MostraVideoCorsi(bool mostra);

 signals:
  void GuidaRapida();
  void ManualeContabilita();
  void VideoCorsi();
  /// A chapter of the guide.
  void Aiuto(const QString& capitolo);

 protected:
  void paintEvent(QPaintEvent* evento) override;
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  void CreaCollegamenti();
  PaginaIniziale* pagina_;
  QPushButton* video_ = nullptr;
};

}  // namespace fenalto::screens
