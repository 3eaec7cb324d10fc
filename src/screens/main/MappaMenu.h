// The menu map: every function of the program, where it stands and what right it asks.
#pragma once

#include <QString>
#include <span>

namespace fenalto::screens {

/// How a function refuses to run beside others.
enum class Esclusiva { No, ChiudereLeAltre, ChiuderePrimaLeAltre };

struct VoceMenu {
  const char* percorso;  ///< submenus, parted by '|'
  const char* voce;      ///< caption
  const char* finestra;  ///< window it opens; begins with '@' for an operation of the main window
  int livello;           ///< right asked; 0 asks none
  int scheda = -1;       ///< page set on opening, where one window serves several entries
  Esclusiva esclusiva = Esclusiva::No;
  const char* nome = "";  ///< object name of the entry, where others refer to it
  bool nascosta = false;  ///< hidden at start
};

/// All entries in menu order.
std::span<const VoceMenu> MappaMenu();

/// The entry of a window (of its page when `scheda` is not negative); for a window that no menu
/// opens, one without caption that isn't in MappaMenu. Null when there is none.
const VoceMenu* VoceDi(const QString& finestra, int scheda = -1);

/// Text that an exclusive function refuses with.
QString TestoEsclusiva(Esclusiva esclusiva);

/// Window and right behind a table that a code field jumps to; an empty window for no jump.
struct ArchivioDiTabella {
  QString finestra;
  int livello = 99;
};
ArchivioDiTabella ArchivioDietro(const QString& tabella);

}  // namespace fenalto::screens
