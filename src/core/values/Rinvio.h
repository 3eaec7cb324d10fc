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

  /// The code as a number; 0 when it isn't one.
  [[nodiscard]] std::int64_t Numero() const;
  [[nodiscard]] bool Vuoto() const { return funzione.empty(); }
  bool operator==(const Rinvio&) const = default;
};

/// To the movements of an account or party.
Rinvio AlConto(const std::string& cfp, const std::string& conto);
/// To a registration of the books, whichever function made it.
Rinvio AllaRegistrazione(int anno, std::int64_t numero);
/// To a record of an archive of codes, by its table in capitals ("CAUSALI").
Rinvio AllArchivio(const std::string& tabella, const std::string& codice);
/// To a record that has a number.
Rinvio AlNumero(const std::string& funzione, std::int64_t numero, int anno = 0);

/// Class of a reference to a purchase invoice from which an asset's card is to be filled.
inline constexpr const char* kCespiteDaFattura = "FATTURA";
/// To a new asset, filled from a registration.
Rinvio AlNuovoCespite(int anno, std::int64_t numero);

}  // namespace fenalto
