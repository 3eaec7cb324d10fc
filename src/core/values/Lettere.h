// Characters one by one: UTF-8 in and out, case and accents of single letters. The parts that the
// text functions are made of.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace fenalto::lettere {

/// Whether it is one of the ten digits.
[[nodiscard]] constexpr bool Cifra(char c) noexcept {
  return c >= '0' && c <= '9';
}

/// The byte as a number, 0 to 255.
[[nodiscard]] constexpr unsigned char Byte(char c) noexcept {
  return static_cast<unsigned char>(c);
}

/// A character of a text, or a byte that is part of none.
struct Unita {
  char32_t carattere;  ///< code point, or the byte when not valid
  std::size_t byte;    ///< how many bytes it takes; 1 when not valid
  bool valida;
};

/// First character of `testo`, which must not be empty. Only well-formed UTF-8 is valid: no
/// overlong forms, no surrogates, nothing above U+10FFFF.
Unita Leggi(std::string_view testo) noexcept;

/// What is shown of a character: a control character as its picture (U+2400 and after), one that
/// has none, and a byte that is part of no character, as U+FFFD; any other as it is.
char32_t Mostrabile(const Unita& unita) noexcept;

/// Writes a code point as UTF-8 and gives how many bytes it takes.
std::size_t Codifica(char32_t carattere, std::array<unsigned char, 4>& byte) noexcept;

/// Appends the code point, or, when not `valida`, the bare byte.
void Accoda(std::string& testo, char32_t carattere, bool valida);

/// Simple case folding of Latin, Greek and Cyrillic; other characters as they are.
char32_t Piega(char32_t c) noexcept;
char32_t Maiuscola(char32_t c) noexcept;
char32_t Minuscola(char32_t c) noexcept;

/// Appends a folded character without its accent; a combining accent appends nothing.
void AccodaSpoglia(std::string& testo, char32_t piegato);

}  // namespace fenalto::lettere
