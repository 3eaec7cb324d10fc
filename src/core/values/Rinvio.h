// A reference to a thing of the program: what a double click, a jump or a menu entry leads to.
//
// It is a value: it can be kept in a page, packed and compared, and whoever makes one knows no
// window. Where a function's name leads is decided in one place (screens/main/Destinazioni).
#pragma once

#include <cstdint>
#include <string>

namespace fenalto {

struct Rinvio {
  /// The function, by its name in the menu map, or one of the names of Destinazioni; empty for
  /// nothing.
  std::string funzione = {};
  std::string codice = {};  ///< of the record; empty for the function alone
  int anno = 0;             ///< year of the record, 0 where codes have none
  std::string classe = {};  ///< what the code is of, where it isn't enough: "C", "F", "P"
  int scheda = -1;          ///< page, where one function stands for several entries of the menu

  [[nodiscard]] bool Vuoto() const { return funzione.empty(); }
  bool operator==(const Rinvio&) const = default;
};

/// To the movements of an account or party.
inline Rinvio AlConto(const std::string& cfp, const std::string& conto) {
  return {.funzione = "MovimentiConto", .codice = conto, .classe = cfp};
}

/// To a registration of the books, whichever function made it.
inline Rinvio AllaRegistrazione(int anno, std::int64_t numero) {
  return {.funzione = "Registrazione", .codice = std::to_string(numero), .anno = anno};
}

/// To a record of an archive of codes, by its table in capitals ("CAUSALI").
inline Rinvio AllArchivio(const std::string& tabella, const std::string& codice) {
  return {.funzione = tabella, .codice = codice};
}

}  // namespace fenalto
