// Buttons that do what a menu entry does, and the frame of a window's related functions.
#pragma once

#include <QList>
#include <span>

#include "screens/common/windows/Finestre.h"

class QAbstractButton;
class QGroupBox;
class QPushButton;

namespace fenalto::screens {

struct FunzioneCorrelata {
  const char* nome;      ///< of the button
  const char* testo;     ///< UTF-8
  const char* finestra;  ///< function that it opens
  int scheda = -1;       ///< tab, where one window serves several entries
};

/// A button that opens the function as its menu entry does; not shown while there is none. It goes
/// to the end of `pulsanti` when it can be pressed.
QPushButton* PulsanteFunzione(Finestre& finestre, const FunzioneCorrelata& funzione,
                              QList<QAbstractButton*>& pulsanti);

/// The frame `FrameFunzCorr`, with so many buttons a line; the last one takes two places if it can.
/// Not shown when no function of them is there.
QGroupBox* RiquadroCorrelate(Finestre& finestre, std::span<const FunzioneCorrelata> funzioni,
                             int perRiga, QList<QAbstractButton*>& pulsanti);

/// Text of a button from its left edge, for buttons one under the other.
void ASinistra(QPushButton* pulsante);

}  // namespace fenalto::screens
