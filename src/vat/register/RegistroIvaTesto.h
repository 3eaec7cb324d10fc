// Pictures of the register's text form.
#pragma once

#include <cstddef>
#include <string>

#include "core/reports/Cornice.h"

namespace fenalto::vat::testo_registro {

inline constexpr std::size_t kLarghezza = 132;
/// Characters of a party's name and of a document's number on the first line of a registration.
inline constexpr std::size_t kNome = 23;
inline constexpr std::size_t kNumero = 12;
inline constexpr std::size_t kIva = 10;
/// What stands before the four amounts.
inline constexpr std::size_t kPrimaImporti = 72;
inline constexpr std::size_t kRientro = 17;

inline std::string Importi(bool euro) {
  const char* uno = euro ? " ###.###.###,##" : " #.###.###.###,";
  return std::string(uno) + uno + uno + uno;
}
inline std::string Riga(bool euro) {
  return "$$$$$$$$ ######, " + reports::Ripeti("$", kNome) + " " + reports::Ripeti("$", kNumero) +
         " $$$$$$$$ " + reports::Ripeti("$", kIva - 1) + Importi(euro);
}
inline std::string RigaTotale(bool euro) {
  return reports::Ripeti("$", kPrimaImporti) + Importi(euro);
}
inline std::string Colonne() {
  return "data reg   prot. cliente/fornitore       documento    del      iva            imponibile "
         " "
         "          iva   iva indetr.         totale";
}

}  // namespace fenalto::vat::testo_registro
