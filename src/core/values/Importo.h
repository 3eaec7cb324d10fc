// Money, quantities, prices and percentages: a 64-bit count of ten-thousandths.
//
// Sums and differences are exact. Products and quotients go through 128 bits and come back to four
// decimals to the nearest, ties to even. No double ever holds money. A result out of range throws
// FuoriCampo: an error, never a wrong number.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace fenalto {

/// Thrown when a result does not fit the range of Importo (about ±922 trillion units).
class FuoriCampo : public std::overflow_error {
 public:
  FuoriCampo() : std::overflow_error("importo fuori dal campo ammesso") {}
};

class Importo {
 public:
  /// Ten-thousandths in one unit.
  static constexpr std::int64_t kScala = 10'000;

  constexpr Importo() = default;

  [[nodiscard]] static constexpr Importo DaDecimillesimi(std::int64_t n) { return Importo(n); }
  /// `n` whole units; throws FuoriCampo.
  [[nodiscard]] static Importo DaUnita(std::int64_t n);
  /// Exact text with a decimal point and at most four decimals ("-1234.5", "3"), no thousands
  /// marks, no blanks; nothing on anything else or when out of range. The inverse of Testo().
  [[nodiscard]] static std::optional<Importo> DaTesto(std::string_view testo);

  [[nodiscard]] constexpr std::int64_t Decimillesimi() const { return n_; }
  /// Shortest exact text, locale-free: "1234.5", "-3.33", "0".
  [[nodiscard]] std::string Testo() const;

  [[nodiscard]] constexpr bool Zero() const { return n_ == 0; }
  [[nodiscard]] constexpr bool Negativo() const { return n_ < 0; }
  [[nodiscard]] Importo Assoluto() const;
  /// Greatest whole number of units not above this amount (towards minus infinity).
  [[nodiscard]] std::int64_t ParteIntera() const;

  Importo operator-() const;
  Importo& operator+=(Importo altro);
  Importo& operator-=(Importo altro);
  friend Importo operator+(Importo a, Importo b) { return a += b; }
  friend Importo operator-(Importo a, Importo b) { return a -= b; }
  /// Product and quotient, to four decimals, nearest, ties to even. Diviso by zero throws
  /// std::domain_error.
  [[nodiscard]] Importo Per(Importo altro) const;
  [[nodiscard]] Importo Diviso(Importo altro) const;
  /// This amount times `percento` over 100, rounded once as above.
  [[nodiscard]] Importo Percento(Importo percento) const;

  constexpr auto operator<=>(const Importo&) const = default;

 private:
  constexpr explicit Importo(std::int64_t n) : n_(n) {}
  std::int64_t n_ = 0;
};

}  // namespace fenalto
