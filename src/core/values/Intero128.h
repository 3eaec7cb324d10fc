// 128-bit steps shared by the arithmetic of amounts: exact division, and the way back to 64 bits.
#pragma once

#include <cstdint>
#include <limits>

#include "core/values/Importo.h"

namespace fenalto {

__extension__ typedef __int128 Intero128;

/// Quotient towards minus infinity; `d` must be positive.
constexpr Intero128 QuozientePavimento(Intero128 n, Intero128 d) {
  const Intero128 q = n / d;
  return n % d < 0 ? q - 1 : q;
}

/// Quotient to the nearest, ties to even; `d` must be positive.
constexpr Intero128 QuozienteVicino(Intero128 n, Intero128 d) {
  const Intero128 q = QuozientePavimento(n, d);
  const Intero128 resto = n - q * d;  // 0 <= resto < d, so d - resto does not overflow
  if (resto > d - resto || (resto == d - resto && q % 2 != 0)) return q + 1;
  return q;
}

/// The amount of `n` ten-thousandths; throws FuoriCampo.
inline Importo ImportoDa128(Intero128 n) {
  if (n > std::numeric_limits<std::int64_t>::max() || n < std::numeric_limits<std::int64_t>::min())
    throw FuoriCampo();
  return Importo::DaDecimillesimi(static_cast<std::int64_t>(n));
}

}  // namespace fenalto
