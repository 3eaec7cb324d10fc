// The LIKE of the store: the pattern is read piece by piece, and a run mark remembers where to go
// back to, so that no pattern costs more than text times pattern.
#include <cstddef>

#include "core/values/Lettere.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace {

using lettere::Leggi;
using lettere::Piega;
using lettere::Unita;

/// Folded character; a byte that is part of no character goes beyond all of them.
char32_t Confrontabile(const Unita& unita) noexcept {
  constexpr char32_t kOltre = 0x110000;
  return unita.valida ? Piega(unita.carattere) : kOltre + unita.carattere;
}

char32_t Prendi(std::string_view& testo) noexcept {
  const Unita unita = Leggi(testo);
  testo.remove_prefix(unita.byte);
  return Confrontabile(unita);
}

/// Whether `c` is in what stands between the brackets: characters and ranges, a minus at either end
/// being itself.
bool NellaClasse(char32_t c, std::string_view classe) noexcept {
  const bool esclude = classe.size() > 1 && classe.front() == '!';
  if (esclude) classe.remove_prefix(1);
  bool trovato = false;
  while (!classe.empty()) {
    const char32_t da = Prendi(classe);
    char32_t a = da;
    if (classe.size() > 1 && classe.front() == '-') {
      classe.remove_prefix(1);
      a = Prendi(classe);
    }
    trovato = trovato || (c >= da && c <= a);
  }
  return trovato != esclude;
}

/// Takes the first piece of the pattern away and tells whether it takes `unita`. The pattern is not
/// empty and doesn't begin with `*` or with "[]".
bool PezzoPrende(std::string_view& modello, const Unita& unita) noexcept {
  const char primo = modello.front();
  if (primo == '?') {
    modello.remove_prefix(1);
    return true;
  }
  if (primo == '#') {
    modello.remove_prefix(1);
    return unita.valida && unita.carattere >= U'0' && unita.carattere <= U'9';
  }
  if (primo == '[') {
    // A bracket that is never closed stands for itself.
    if (const std::size_t fine = modello.find(']'); fine != std::string_view::npos) {
      const std::string_view classe = modello.substr(1, fine - 1);
      modello.remove_prefix(fine + 1);
      return NellaClasse(Confrontabile(unita), classe);
    }
  }
  return Prendi(modello) == Confrontabile(unita);
}

}  // namespace

bool Somiglia(std::string_view testo, std::string_view modello) noexcept {
  bool corsa = false;
  std::string_view testoCorsa;
  std::string_view modelloCorsa;
  for (;;) {
    while (modello.starts_with("[]")) modello.remove_prefix(2);
    if (!modello.empty() && modello.front() == '*') {
      modello.remove_prefix(1);
      if (modello.empty()) return true;
      corsa = true;
      testoCorsa = testo;
      modelloCorsa = modello;
      continue;
    }
    if (testo.empty() && modello.empty()) return true;
    if (!testo.empty() && !modello.empty()) {
      const Unita unita = Leggi(testo);
      if (PezzoPrende(modello, unita)) {
        testo.remove_prefix(unita.byte);
        continue;
      }
    }
    // Give the last run one character more and try what follows it again.
    if (!corsa || testoCorsa.empty()) return false;
    testoCorsa.remove_prefix(Leggi(testoCorsa).byte);
    testo = testoCorsa;
    modello = modelloCorsa;
  }
}

}  // namespace fenalto
