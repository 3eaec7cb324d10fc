// Reads copioni: text files with one command a line, into commands that know where they stand.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/Esito.h"

namespace fenalto::copione {

/// A word of a command. Bars that were not escaped part the values of a row.
struct Parola {
  std::string testo;
  bool traVirgolette = false;
  std::vector<std::size_t> barre;  ///< positions in `testo` of the bars that part values

  [[nodiscard]] std::vector<std::string> Valori() const;
};

struct Comando {
  std::string file;  ///< as the caller, or the `includi` that led here, named it
  int riga = 0;
  std::string nome;
  std::vector<Parola> parole;  ///< the words after the command's name

  /// "FILE:LINE"
  [[nodiscard]] std::string Luogo() const;
  /// Text of a word, empty past the last one.
  [[nodiscard]] const std::string& Testo(std::size_t indice) const;
  /// A word as a whole number; only of words that the grammar has checked.
  [[nodiscard]] int Numero(std::size_t indice) const;
};

/// Why a copione can't be read, ready to be printed: "FILE:LINE: command: why".
struct Illeggibile {
  std::string testo;
};

/// The words of one line; the error is the bare reason. Blank lines and comments have no word.
Esito<std::vector<Parola>, std::string> LeggiParole(std::string_view riga);

/// Checks the number and the shape of a command's words. Empty when all is well.
std::string Difetto(const Comando& comando);

/// All commands of a text, in order; `includi` is left as it stands.
Esito<std::vector<Comando>, Illeggibile> LeggiTesto(std::string_view testo,
                                                    const std::string& file);

/// All commands of a file, those of included files in their place. An included file is looked for
/// beside the file that names it, then in `cartella`.
Esito<std::vector<Comando>, Illeggibile> LeggiFile(const std::filesystem::path& file,
                                                   const std::filesystem::path& cartella);

}  // namespace fenalto::copione
