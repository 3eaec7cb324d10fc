// Which windows are open, and which of them is the current one.
#pragma once

#include <QList>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include "runner/Programma.h"

namespace fenalto::copione {

class Scena {
 public:
  explicit Scena(Programma& programma) : programma_(programma) {}

  /// Follows what the last command changed: windows opened, closed, brought to the front.
  void Aggiorna();
  /// The last window that came to the front.
  QWidget& Corrente();
  /// An open window by name (the main window and the background included); null when not open.
  QWidget* PerNome(const QString& nome);
  /// Brings an open window to the front.
  void PortaAvanti(QWidget& finestra);
  /// Names of the open windows, the one in front last.
  QStringList Aperte();

 private:
  screens::FinestraPrincipale& Principale() { return programma_.App().Principale(); }
  /// Open windows besides the main one, the one in front last.
  QList<QWidget*> Sopra();
  /// A box over the main window, such as the search for functions.
  bool RiquadroAperto();
  void InCima(QWidget* finestra);

  Programma& programma_;
  QList<QPointer<QWidget>> pila_;
  QPointer<QWidget> ultimaDavanti_;
  bool riquadro_ = false;
  bool alzataDalRiquadro_ = false;  ///< the main window is in front only for its box
  int avvio_ = 0;
};

}  // namespace fenalto::copione
