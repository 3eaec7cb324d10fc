// The menu map: every function of the program, where it stands and what right it asks.
#pragma once

#include <QString>
#include <span>

#include "core/values/Rinvio.h"

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

/// Other words that find an entry, as clerks say them, parted by ';'; empty for most.
const char* SinonimiDi(const VoceMenu& voce);

/// Text that an exclusive function refuses with.
QString TestoEsclusiva(Esclusiva esclusiva);

/// The function of an entry.
Rinvio RinvioDi(const VoceMenu& voce);

/// An archive that code fields lead to. It isn't the function of its menu entry, which bears the
/// window's name: its right may differ, and one that is open already gives way.
struct RigaArchivio {
  const char* tabella;  ///< in capitals
  const char* finestra;
  int livello;
};
/// By the table's name; null for none.
const RigaArchivio* ArchivioDietro(const std::string& tabella);

}  // namespace fenalto::screens
