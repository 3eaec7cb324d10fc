// The box that finds any function, account, party or recent record by a few letters.
#pragma once

#include <QFrame>
#include <functional>
#include <memory>
#include <vector>

#include "overview/IndiceVoci.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace fenalto::screens {

class CercaFunzione : public QFrame {
  Q_OBJECT

 public:
  using Indice = std::shared_ptr<overview::IndiceVoci>;
  using Seguito = std::function<void(const Rinvio&)>;
  /// Shows the box over `finestra`; it goes by itself when something was chosen (which `segui` is
  /// told), on Esc, or when it loses the focus.
  static CercaFunzione* Apri(QWidget* finestra, Indice indice, Seguito segui);

  /// The index has changed.
  void Filtra();

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  CercaFunzione(QWidget* finestra, Indice indice, Seguito segui);
  /// Goes where the current row leads; to the archive behind it when there is one and `archivio`.
  void Scegli(bool archivio);
  void Sparisci();

  Indice indice_;
  Seguito segui_;
  QLineEdit* testo_;
  QListWidget* elenco_;
  QLabel* piede_;
  struct Riga {
    Rinvio rinvio;
    Rinvio archivio;
  };
  std::vector<Riga> righe_;
};

}  // namespace fenalto::screens
