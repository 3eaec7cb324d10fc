#include "core/values/Lettere.h"

#include <algorithm>

namespace fenalto::lettere {

namespace {

/// A run of capital letters and how far their small ones are. With `passo` 2 only every other
/// code point from `da` on is a capital.
struct Tratto {
  char32_t da;
  char32_t a;
  char32_t passo;
  char32_t distanza;
};

// In order of code point, for the search.
constexpr std::array kTratti = {
    Tratto{0x0041, 0x005A, 1, 32},  // Latin
    Tratto{0x00C0, 0x00D6, 1, 32}, Tratto{0x00D8, 0x00DE, 1, 32}, Tratto{0x0100, 0x012E, 2, 1},
    Tratto{0x0132, 0x0136, 2, 1},  Tratto{0x0139, 0x0147, 2, 1},  Tratto{0x014A, 0x0176, 2, 1},
    Tratto{0x0179, 0x017D, 2, 1},  Tratto{0x01CD, 0x01DB, 2, 1},  Tratto{0x01DE, 0x01EE, 2, 1},
    Tratto{0x01F8, 0x021E, 2, 1},  Tratto{0x0222, 0x0232, 2, 1},  // Latin, extended
    Tratto{0x0386, 0x0386, 1, 38}, Tratto{0x0388, 0x038A, 1, 37}, Tratto{0x038C, 0x038C, 1, 64},
    Tratto{0x038E, 0x038F, 1, 63}, Tratto{0x0391, 0x03A1, 1, 32}, Tratto{0x03A3, 0x03AB, 1, 32},
    Tratto{0x03D8, 0x03EE, 2, 1},  // Greek
    Tratto{0x0400, 0x040F, 1, 80}, Tratto{0x0410, 0x042F, 1, 32}, Tratto{0x0460, 0x0480, 2, 1},
    Tratto{0x048A, 0x04BE, 2, 1},  Tratto{0x04C0, 0x04C0, 1, 15}, Tratto{0x04C1, 0x04CD, 2, 1},
    Tratto{0x04D0, 0x052E, 2, 1},                                  // Cyrillic
    Tratto{0x1E00, 0x1E94, 2, 1},  Tratto{0x1EA0, 0x1EFE, 2, 1}};  // Latin, additional

constexpr bool InOrdine() {
  for (std::size_t i = 1; i < kTratti.size(); ++i)
    if (kTratti[i].da <= kTratti[i - 1].a) return false;
  return true;
}
static_assert(InOrdine());

struct Coppia {
  char32_t da;
  char32_t a;
};

// Capitals whose small letter lies elsewhere.
constexpr std::array kMaiuscoleSparse = {Coppia{0x0178, 0x00FF}, Coppia{0x1E9E, 0x00DF},
                                         Coppia{0x2126, 0x03C9}, Coppia{0x212A, 0x006B},
                                         Coppia{0x212B, 0x00E5}};

// Small letters that fold to another small letter: variants of the same letter.
constexpr std::array kVarianti = {
    Coppia{0x00B5, 0x03BC}, Coppia{0x017F, 0x0073}, Coppia{0x03C2, 0x03C3}, Coppia{0x03D0, 0x03B2},
    Coppia{0x03D1, 0x03B8}, Coppia{0x03D5, 0x03C6}, Coppia{0x03D6, 0x03C0}, Coppia{0x03F0, 0x03BA},
    Coppia{0x03F1, 0x03C1}, Coppia{0x03F5, 0x03B5}, Coppia{0x1E9B, 0x1E61}};

// Greek small letters with tonos or dialytika.
constexpr std::array kGrecheSpoglie = {
    Coppia{0x0390, 0x03B9}, Coppia{0x03AC, 0x03B1}, Coppia{0x03AD, 0x03B5}, Coppia{0x03AE, 0x03B7},
    Coppia{0x03AF, 0x03B9}, Coppia{0x03B0, 0x03C5}, Coppia{0x03CA, 0x03B9}, Coppia{0x03CB, 0x03C5},
    Coppia{0x03CC, 0x03BF}, Coppia{0x03CD, 0x03C5}, Coppia{0x03CE, 0x03C9}};

template <std::size_t N>
char32_t Cerca(const std::array<Coppia, N>& coppie, char32_t c) noexcept {
  for (const Coppia& coppia : coppie)
    if (coppia.da == c) return coppia.a;
  return c;
}

const Tratto* TrattoDi(char32_t c) noexcept {
  const auto fine = std::ranges::lower_bound(kTratti, c, {}, &Tratto::a);
  if (fine == kTratti.end() || c < fine->da || (c - fine->da) % fine->passo != 0) return nullptr;
  return &*fine;
}

struct Spoglia {
  char32_t fino;  ///< last code point of the run that begins after the one before
  std::string_view lettere;
};

// Latin small letters from U+00DF on (Latin-1, then Extended-A, whose capitals fold away). An empty
// text means that the letter has no plainer form.
constexpr std::array kLatineSpoglie = {
    Spoglia{0x00DF, "ss"}, Spoglia{0x00E5, "a"}, Spoglia{0x00E6, "ae"}, Spoglia{0x00E7, "c"},
    Spoglia{0x00EB, "e"},  Spoglia{0x00EF, "i"}, Spoglia{0x00F0, "d"},  Spoglia{0x00F1, "n"},
    Spoglia{0x00F6, "o"},  Spoglia{0x00F7, ""},  Spoglia{0x00F8, "o"},  Spoglia{0x00FC, "u"},
    Spoglia{0x00FD, "y"},  Spoglia{0x00FE, ""},  Spoglia{0x00FF, "y"},  Spoglia{0x0105, "a"},
    Spoglia{0x010D, "c"},  Spoglia{0x0111, "d"}, Spoglia{0x011B, "e"},  Spoglia{0x0123, "g"},
    Spoglia{0x0127, "h"},  Spoglia{0x0131, "i"}, Spoglia{0x0133, "ij"}, Spoglia{0x0135, "j"},
    Spoglia{0x0138, "k"},  Spoglia{0x0142, "l"}, Spoglia{0x014B, "n"},  Spoglia{0x0151, "o"},
    Spoglia{0x0153, "oe"}, Spoglia{0x0159, "r"}, Spoglia{0x0161, "s"},  Spoglia{0x0167, "t"},
    Spoglia{0x0173, "u"},  Spoglia{0x0175, "w"}, Spoglia{0x0178, "y"},  Spoglia{0x017E, "z"},
    Spoglia{0x017F, "s"},  Spoglia{0x0218, ""},  Spoglia{0x0219, "s"},  Spoglia{0x021A, ""},
    Spoglia{0x021B, "t"}};

}  // namespace

Unita Leggi(std::string_view testo) noexcept {
  const unsigned char primo = Byte(testo.front());
  const Unita invalida{primo, 1, false};
  if (primo < 0x80) return {primo, 1, true};
  if (primo < 0xC2 || primo > 0xF4) return invalida;
  const std::size_t byte = primo < 0xE0 ? 2 : primo < 0xF0 ? 3 : 4;
  if (testo.size() < byte) return invalida;
  char32_t c = primo & (0xFFU >> (byte + 1));
  for (std::size_t i = 1; i < byte; ++i) {
    const unsigned char seguente = Byte(testo[i]);
    if ((seguente & 0xC0U) != 0x80U) return invalida;
    c = (c << 6) | (seguente & 0x3FU);
  }
  const bool lunga = (byte == 3 && c < 0x800) || (byte == 4 && c < 0x10000);
  if (lunga || (c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF) return invalida;
  return {c, byte, true};
}

char32_t Mostrabile(const Unita& unita) noexcept {
  constexpr char32_t kSostituto = 0xFFFD;
  constexpr char32_t kImmagini = 0x2400;
  constexpr char32_t kCanc = 0x7F;
  constexpr char32_t kImmagineCanc = 0x2421;
  constexpr char32_t kFineC1 = 0x9F;
  const char32_t c = unita.carattere;
  if (!unita.valida) return kSostituto;
  if (c < U' ') return kImmagini + c;
  if (c == kCanc) return kImmagineCanc;
  // The separators of lines and paragraphs move the carriage too.
  const bool muto = (c > kCanc && c <= kFineC1) || c == 0x2028 || c == 0x2029;
  return muto ? kSostituto : c;
}

std::size_t Codifica(char32_t c, std::array<unsigned char, 4>& byte) noexcept {
  const auto coda = [c](unsigned bit) {
    return static_cast<unsigned char>(0x80U | ((c >> bit) & 0x3FU));
  };
  if (c < 0x80) {
    byte = {static_cast<unsigned char>(c)};
    return 1;
  }
  if (c < 0x800) {
    byte = {static_cast<unsigned char>(0xC0U | (c >> 6)), coda(0)};
    return 2;
  }
  if (c < 0x10000) {
    byte = {static_cast<unsigned char>(0xE0U | (c >> 12)), coda(6), coda(0)};
    return 3;
  }
  byte = {static_cast<unsigned char>(0xF0U | (c >> 18)), coda(12), coda(6), coda(0)};
  return 4;
}

void Accoda(std::string& testo, char32_t carattere, bool valida) {
  if (!valida || carattere < 0x80) {
    testo += static_cast<char>(carattere);
    return;
  }
  std::array<unsigned char, 4> byte{};
  const std::size_t n = Codifica(carattere, byte);
  for (std::size_t i = 0; i < n; ++i) testo += static_cast<char>(byte[i]);
}

char32_t Minuscola(char32_t c) noexcept {
  if (c < 0x80) return c >= U'A' && c <= U'Z' ? c + 32 : c;
  if (const Tratto* tratto = TrattoDi(c)) return c + tratto->distanza;
  return Cerca(kMaiuscoleSparse, c);
}

char32_t Piega(char32_t c) noexcept {
  const char32_t minuscola = Minuscola(c);
  return minuscola == c && c >= 0x80 ? Cerca(kVarianti, c) : minuscola;
}

char32_t Maiuscola(char32_t c) noexcept {
  constexpr char32_t kEsseTedesca = 0x00DF;  // its capital is written SS, which is two letters
  if (c < 0x80) return c >= U'a' && c <= U'z' ? c - 32 : c;
  if (c == kEsseTedesca) return c;
  if (c == 0x0131) return U'I';
  const char32_t base = Cerca(kVarianti, c);
  if (base < 0x80 || base != c) return Maiuscola(base);
  for (const Tratto& tratto : kTratti) {
    const char32_t maiuscola = c - tratto.distanza;
    if (c >= tratto.da + tratto.distanza && maiuscola <= tratto.a &&
        (maiuscola - tratto.da) % tratto.passo == 0)
      return maiuscola;
  }
  return c == 0x00FF ? 0x0178 : c;
}

void AccodaSpoglia(std::string& testo, char32_t c) {
  constexpr char32_t kPrimaLatina = 0x00DF;
  constexpr char32_t kApostrofo = 0x2019;
  if (c >= 0x0300 && c <= 0x036F) return;  // combining accents
  if (c >= kPrimaLatina && c <= kLatineSpoglie.back().fino) {
    const auto spoglia = std::ranges::lower_bound(kLatineSpoglie, c, {}, &Spoglia::fino);
    if (!spoglia->lettere.empty()) {
      testo += spoglia->lettere;
      return;
    }
  }
  Accoda(testo, c == kApostrofo ? U'\'' : Cerca(kGrecheSpoglie, c), true);
}

}  // namespace fenalto::lettere
