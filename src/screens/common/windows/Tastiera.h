// How the keys go through a window: where Enter leads, how pages are turned, what a field does when
// it is entered.
#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

class QAbstractButton;
class QKeyEvent;
class QLineEdit;
class QTreeView;

namespace fenalto::screens {

/// Where Enter goes from a control of a window: to the next one that is typed into, or to a button
/// that goes on with the work. Other buttons (attachments, jumps, what deletes or gives up) are
/// passed over. Null when there is none.
QWidget* DopoInvio(const QWidget& finestra, QWidget& campo);
/// The same among controls in an order of their own; null after the last.
QWidget* DopoInvio(const QList<QWidget*>& ordine, const QWidget& campo);

/// Moves the focus to a button, as a key does, and presses it unless the field that was left keeps
/// the focus.
void PremiPassando(QAbstractButton& pulsante);

/// Ctrl+Tab, Ctrl+Maiusc+Tab and Ctrl+1..9 turn the pages around what has the focus, or else those
/// of the window. False for another key, and where there is nothing to turn.
bool GiraPagine(const QWidget& finestra, const QKeyEvent& tasto);

/// The open branches of a tree as text, with the captions of its columns, into the clipboard.
void CopiaAlbero(const QTreeView& albero);

/// Selects the text of a line that is entered, by a key, by the program or by a click.
class SelezioneEntrando {
 public:
  /// An event of any control, before it is delivered.
  void Guarda(QObject* oggetto, const QEvent& evento);

 private:
  QPointer<QLineEdit> cliccata_;  ///< entered by a click that isn't over
};

}  // namespace fenalto::screens
