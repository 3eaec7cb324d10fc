// The box that finds any function by a few letters.
#pragma once

#include <QFrame>
#include <functional>
#include <vector>

#include "core/values/Rinvio.h"

class QLineEdit;
class QListWidget;

namespace fenalto::screens {

class CercaFunzione : public QFrame {
  Q_OBJECT

 public:
  struct Funzione {
    QString voce;
    QString percorso;
    Rinvio rinvio;
  };
  using Seguito = std::function<void(const Rinvio&)>;
  /// Shows the box over `finestra`; it goes by itself when a function was chosen (which `segui` is
  /// told), on Esc, or when it loses the focus.
  static void Apri(QWidget* finestra, std::vector<Funzione> funzioni, Seguito segui);

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  CercaFunzione(QWidget* finestra, std::vector<Funzione> funzioni, Seguito segui);
  void Filtra(const QString& testo);
  void Scegli();

  std::vector<Funzione> funzioni_;
  Seguito segui_;
  QLineEdit* testo_;
  QListWidget* elenco_;
};

}  // namespace fenalto::screens
