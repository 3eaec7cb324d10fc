#include "core/values/ControlloCodiceFiscale.h"

#include <array>

#include "core/values/ControlloPartitaIva.h"
#include "core/values/Lettere.h"
#include "core/values/Testo.h"

namespace fenalto {

using lettere::Cifra;

namespace {

constexpr std::size_t kSocieta = 11;
constexpr int kLettere = 26;

/// What a character in an odd place (from 1) counts, 0 to 9 as A to J.
constexpr std::array<int, kLettere> kDispari = {1,  0,  5, 7, 9, 13, 15, 17, 19, 21, 2,  4,  18,
                                                20, 11, 3, 6, 8, 12, 14, 16, 10, 22, 25, 24, 23};

/// Places of a person's code: letters, or digits that a letter of the list may stand for.
constexpr std::string_view kForma = "AAAAAA99A99A999A";
constexpr std::string_view kAlPostoDiCifre = "LMNPQRSTUV";
constexpr std::string_view kLettereMesi = "ABCDEHLMPRST";

char Maiuscola(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool NellaForma(std::string_view codice) {
  constexpr std::size_t kMese = 8;
  for (std::size_t i = 0; i < kCaratteriCodiceFiscale; ++i) {
    const char c = Maiuscola(codice[i]);
    const bool lettera = c >= 'A' && c <= 'Z';
    const bool buono =
        kForma[i] == 'A' ? lettera : Cifra(c) || kAlPostoDiCifre.find(c) != std::string_view::npos;
    if (!buono) return false;
  }
  return kLettereMesi.find(Maiuscola(codice[kMese])) != std::string_view::npos;
}

char LetteraDiControllo(std::string_view codice) {
  int somma = 0;
  for (std::size_t i = 0; i + 1 < kCaratteriCodiceFiscale; ++i) {
    const char c = Maiuscola(codice[i]);
    const int valore = Cifra(c) ? c - '0' : c - 'A';
    somma += i % 2 == 0 ? kDispari[static_cast<std::size_t>(valore)] : valore;
  }
  return static_cast<char>('A' + somma % kLettere);
}

}  // namespace

std::string_view ControlloCodiceFiscale(std::string_view codiceFiscale) noexcept {
  const std::string_view codice = Rifila(codiceFiscale);
  if (codice.empty()) return {};
  if (codice.size() == kSocieta && Cifra(codice[0])) {
    return UndiciCifreValide(codice) ? std::string_view() : "cifra di controllo errata";
  }
  if (codice.size() != kCaratteriCodiceFiscale)
    return "il codice fiscale ha 16 caratteri o 11 cifre";
  if (!NellaForma(codice)) return "lettere e cifre fuori posto";
  if (!LetteraDiControlloGiusta(codice)) return "lettera di controllo errata";
  return {};
}

bool LetteraDiControlloGiusta(std::string_view sedici) noexcept {
  return LetteraDiControllo(sedici) == Maiuscola(sedici.back());
}

}  // namespace fenalto
