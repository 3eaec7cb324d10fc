// What a page of fixed-pitch text holds.
//
// The lines of a pitch are as high as two of its characters are wide: 6 lines an inch at pitch 12,
// 8.5 at pitch 17. So a page of A4 with margins of 5 mm holds 96 lines of 133 columns at pitch 17,
// and 66 lines of 192 when it lies on its side.
#pragma once

#include <cstddef>

#include "core/reports/Pagina.h"

namespace fenalto::reports {

inline constexpr int kPassoUsuale = 17;
inline constexpr int kPassoMinimo = 4;
inline constexpr int kPassoMassimo = 40;

[[nodiscard]] std::size_t ColonnePagina(const FormatoPagina& formato, int passo);
[[nodiscard]] int RighePagina(const FormatoPagina& formato, int passo);
/// Distance from the page's top of the n-th line, from 0.
[[nodiscard]] int AltezzaRigaTesto(const FormatoPagina& formato, int passo, int riga);

struct DisposizioneTesto {
  FormatoPagina formato;
  int passo = kPassoUsuale;
};
/// How lines of that many characters stand on A4: upright when they fit at the pitch asked for,
/// else on its side, else on its side at the widest pitch that holds them (at most kPassoMassimo).
[[nodiscard]] DisposizioneTesto DisponiTesto(std::size_t caratteri, int passo);

}  // namespace fenalto::reports
