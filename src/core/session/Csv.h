// Tables as text: first line the field names, `;` between fields, `""` quoting. Our own are read
// strictly; those of other programs as those programs write them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/Esito.h"

namespace fenalto {

struct TabellaCsv {
  std::vector<std::string> nomi;
  struct Riga {
    std::size_t linea = 0;  ///< of the text, from 1
    std::vector<std::string> campi;
  };
  std::vector<Riga> righe;
};

/// Reads a whole text (UTF-8, with or without mark, LF or CR LF). A field in double quotes may hold
/// `;`, line breaks and doubled quotes. Empty lines are left out. An error names the line: a quote
/// out of place or not closed, a number of fields other than that of the names, names missing or
/// double, text that isn't UTF-8.
Esito<TabellaCsv> LeggiCsv(std::string_view testo);

/// How a table of another program is read.
struct OpzioniCsv {
  char separatore = ';';
  /// Quotes out of place stand for themselves, names may be missing or double, and a line may have
  /// more or fewer fields than there are names, and bytes that are no characters: the caller
  /// judges.
  bool tollerante = false;
  /// Most lines of data; 0 for any number. More are an error.
  std::size_t massimoRighe = 0;
};
Esito<TabellaCsv> LeggiCsv(std::string_view testo, const OpzioniCsv& opzioni);

}  // namespace fenalto
