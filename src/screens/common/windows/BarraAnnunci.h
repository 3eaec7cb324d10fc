// The bar at a window's foot that tells what was done, until the next thing that is done.
//
// What one action tells stands together; a key or a click in the window is the next action. The bar
// takes no focus and moves nothing above it: rows of a grid stay where they are.
#pragma once

#include <QFrame>
#include <QStringList>

class QLabel;

namespace fenalto::screens {

class BarraAnnunci : public QFrame {
  Q_OBJECT

 public:
  explicit BarraAnnunci(QWidget* genitore);

  /// Adds a text to those of the same action, or begins anew.
  void Annuncia(const QString& testo);

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  /// The user goes on: unless that announces something, the bar goes away after `attesa` ms.
  void Azione(int attesa);

  QLabel* testo_;
  QStringList testi_;
  bool passati_ = false;  ///< the texts belong to an action before
};

}  // namespace fenalto::screens
