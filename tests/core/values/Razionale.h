// Exact fractions of any size: the oracle of the arithmetic, which shares nothing with it.
#pragma once

#include <boost/multiprecision/cpp_int.hpp>
#include <cstdint>
#include <limits>
#include <optional>

#include "core/values/Importo.h"

namespace fenalto::prova {

using Razionale = boost::multiprecision::cpp_rational;
using Grande = boost::multiprecision::cpp_int;

inline Razionale Esatto(Importo importo) {
  return Razionale(importo.Decimillesimi(), 10'000);
}

/// Whole part, towards minus infinity.
inline Grande Int(const Razionale& r) {
  const Grande n = numerator(r);
  const Grande d = denominator(r);
  Grande q = n / d;
  if (q * d > n) --q;
  return q;
}

/// Ten-thousandths to the nearest, ties to even.
inline Grande Decimillesimi(const Razionale& r) {
  const Razionale n = r * 10'000;
  const Grande sotto = Int(n);
  const Razionale resto = n - Razionale(sotto);
  const Razionale mezzo(1, 2);
  if (resto > mezzo || (resto == mezzo && sotto % 2 != 0)) return sotto + 1;
  return sotto;
}

/// As an amount holds it.
inline Razionale Tenuto(const Razionale& r) {
  return Razionale(Decimillesimi(r), 10'000);
}

inline Razionale Grandezza(const Razionale& r) {
  return r < 0 ? Razionale(-r) : r;
}

/// The amount, or nothing when it is out of range.
inline std::optional<Importo> InImporto(const Razionale& r) {
  const Grande n = Decimillesimi(r);
  if (n > std::numeric_limits<std::int64_t>::max() || n < std::numeric_limits<std::int64_t>::min())
    return std::nullopt;
  return Importo::DaDecimillesimi(static_cast<std::int64_t>(n));
}

/// What `calcola` gives, or nothing when it is out of range.
template <typename F>
std::optional<Importo> OFuoriCampo(F calcola) {
  try {
    return calcola();
  } catch (const FuoriCampo&) {
    return std::nullopt;
  }
}

}  // namespace fenalto::prova
