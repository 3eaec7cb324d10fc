// Keys and mouse through the toolkit's event system, and waiting until nothing is under way.
#pragma once

#include <QPoint>
#include <QString>
#include <chrono>

#include "runner/Tasti.h"

class QWidget;

namespace fenalto::copione {

class Programma;

/// Handles everything that waits in the event queue, deferred deletions included, for at most
/// `limite`. False when the queue did not empty.
bool SmaltisciEventi(std::chrono::milliseconds limite = std::chrono::seconds(60));
/// The same until no job and no transaction of the program is under way either.
bool Riposa(Programma& programma, std::chrono::steady_clock::time_point scadenza);

/// Makes a top-level window the active one, so that its controls can have the focus.
void Attiva(QWidget& finestra);
[[nodiscard]] bool HaFuoco(const QWidget& controllo);
/// Moves the focus there, and lets what leaving the control before raises run its course. False
/// when the focus went elsewhere.
bool MettiFuoco(QWidget& controllo, Qt::FocusReason motivo);

/// Types a text into whatever has the focus (`controllo` when nothing has).
void Digita(QWidget& controllo, const QString& testo);
void Premi(QWidget& controllo, const Tasto& tasto);

void Clic(QWidget& controllo, const QPoint& punto);
void DoppioClic(QWidget& controllo, const QPoint& punto);

}  // namespace fenalto::copione
