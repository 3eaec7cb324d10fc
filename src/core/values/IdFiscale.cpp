#include "core/values/IdFiscale.h"

#include <algorithm>

#include "core/values/ControlloCodiceFiscale.h"
#include "core/values/ControlloPartitaIva.h"

namespace fenalto {

namespace {

bool LetteraOCifra(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

bool IdFiscaleValido(std::string_view numero) noexcept {
  constexpr std::size_t kQuindicesimo = 14;
  if (numero.size() > kQuindicesimo && numero[kQuindicesimo] == ' ') {
    numero = numero.substr(0, numero.find(' '));
  }
  if (numero.size() == kCifrePartitaIva) {
    // Eleven zeros check themselves.
    return UndiciCifreValide(numero) ||
           std::all_of(numero.begin(), numero.end(), [](char c) { return c == '0'; });
  }
  return numero.size() == kCaratteriCodiceFiscale &&
         std::all_of(numero.begin(), numero.end(), LetteraOCifra) &&
         LetteraDiControlloGiusta(numero);
}

}  // namespace fenalto
