// The pieces of the start page: a way in, which is pressed by mouse or Enter, and the frames that
// hold them. They take their colours and distances from the look alone.
#pragma once

#include <QAbstractButton>
#include <QFrame>

#include "core/values/Rinvio.h"

class QLabel;
class QVBoxLayout;

namespace fenalto::screens {

/// A way in: a title, a line below it, and an amount or a few words on the right. Where it has no
/// room for all of it, the text ends with an ellipsis and the tooltip tells it.
class Via : public QAbstractButton {
  Q_OBJECT

 public:
  enum class Aspetto {
    Grande,  ///< one of the main ways, in the accent
    Riga,    ///< a line of a frame
    Minuta,  ///< the same, one of many: what stands on the right is quiet
  };
  Via(const QString& nome, Aspetto aspetto, QWidget* genitore);

  /// What it says, all of which is its text for screen readers.
  void Mostra(const QString& titolo, const QString& sotto, const QString& valore = {});
  /// The value wants attention.
  void Avvisa(bool avvisa);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* evento) override;
  void paintEvent(QPaintEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void enterEvent(QEnterEvent* evento) override;
  void leaveEvent(QEvent* evento) override;

 private:
  [[nodiscard]] QFont Lettere(bool titolo) const;
  Aspetto aspetto_;
  QString titolo_;
  QString sotto_;
  QString valore_;
  bool avvisa_ = false;
};

/// A frame of the page with its heading; what it holds goes below.
class RiquadroPagina : public QFrame {
  Q_OBJECT

 public:
  RiquadroPagina(const QString& titolo, QWidget* genitore);
  /// Puts a piece below those that it holds.
  void Aggiungi(QWidget* pezzo);
  /// A line of quiet text at the end, hidden while empty.
  void Nota(const QString& testo, bool avvisa = false);

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  QVBoxLayout* colonna_;
  QLabel* nota_;
};

}  // namespace fenalto::screens
