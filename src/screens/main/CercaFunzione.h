// The box that finds any function by a few letters.
#pragma once

#include <QFrame>
#include <functional>
#include <vector>

class QLineEdit;
class QListWidget;

namespace fenalto::screens {

class CercaFunzione : public QFrame {
  Q_OBJECT

 public:
  struct Funzione {
    QString voce;
    QString percorso;
    std::function<void()> apri;
  };
  /// Shows the box over `finestra`; it goes by itself when a function was chosen, on Esc, or when
  /// it loses the focus.
  static void Apri(QWidget* finestra, std::vector<Funzione> funzioni);

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  CercaFunzione(QWidget* finestra, std::vector<Funzione> funzioni);
  void Filtra(const QString& testo);
  void Scegli();

  std::vector<Funzione> funzioni_;
  QLineEdit* testo_;
  QListWidget* elenco_;
};

}  // namespace fenalto::screens
