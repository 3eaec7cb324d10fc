#include "core/values/ControlloPartitaIva.h"

#include <algorithm>

#include "core/values/Lettere.h"
#include "core/values/Testo.h"

namespace fenalto {

using lettere::Cifra;

namespace {

bool Lettera(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

bool UndiciCifreValide(std::string_view cifre) noexcept {
  if (cifre.size() != kCifrePartitaIva || !std::all_of(cifre.begin(), cifre.end(), Cifra))
    return false;
  constexpr int kNove = 9;
  int somma = 0;
  for (std::size_t i = 0; i < kCifrePartitaIva; ++i) {
    int cifra = cifre[i] - '0';
    if (i % 2 == 1) {  // the second, the fourth, ... count twice, the digits of the double added
      cifra *= 2;
      if (cifra > kNove) cifra -= kNove;
    }
    somma += cifra;
  }
  return somma > 0 && somma % 10 == 0;
}

std::string_view ControlloPartitaIva(std::string_view partitaIva) noexcept {
  std::string_view resto = Rifila(partitaIva);
  if (resto.size() >= 2 && Lettera(resto[0]) && Lettera(resto[1])) {
    if (!UgualeTesto(resto.substr(0, 2), "IT")) return {};
    resto = Rifila(resto.substr(2));
  }
  if (resto.empty()) return {};
  if (resto.size() != kCifrePartitaIva || !std::all_of(resto.begin(), resto.end(), Cifra)) {
    return "la partita IVA ha 11 cifre";
  }
  if (!UndiciCifreValide(resto)) return "cifra di controllo errata";
  return {};
}

}  // namespace fenalto
