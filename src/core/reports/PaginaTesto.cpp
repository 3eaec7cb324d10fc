#include "core/reports/PaginaTesto.h"

#include <algorithm>

namespace fenalto::reports {

namespace {

constexpr int kPollice = 2'540;

}  // namespace

std::size_t ColonnePagina(const FormatoPagina& formato, int passo) {
  return static_cast<std::size_t>((formato.larghezza - 2 * formato.margine) * passo / kPollice);
}

int RighePagina(const FormatoPagina& formato, int passo) {
  return (formato.altezza - 2 * formato.margine) * passo / (2 * kPollice);
}

int AltezzaRigaTesto(const FormatoPagina& formato, int passo, int riga) {
  return formato.margine + riga * 2 * kPollice / passo;
}

DisposizioneTesto DisponiTesto(std::size_t caratteri, int passo) {
  DisposizioneTesto disposizione;
  disposizione.passo = std::clamp(passo, kPassoMinimo, kPassoMassimo);
  if (caratteri <= ColonnePagina(disposizione.formato, disposizione.passo)) return disposizione;
  std::swap(disposizione.formato.larghezza, disposizione.formato.altezza);
  while (disposizione.passo < kPassoMassimo &&
         caratteri > ColonnePagina(disposizione.formato, disposizione.passo))
    ++disposizione.passo;
  return disposizione;
}

}  // namespace fenalto::reports
