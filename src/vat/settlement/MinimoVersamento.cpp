#include "vat/settlement/MinimoVersamento.h"

#include <algorithm>
#include <array>

namespace fenalto::vat {
namespace {

/// In order of year; the last that has begun holds.
constexpr std::array kMinimi = {MinimoVersamento{0, Importo::DaDecimillesimi(258'200), false, false,
                                                 "importo inferiore a € 25.82"},
                                MinimoVersamento{2024, Importo::DaDecimillesimi(1'000'000), true,
                                                 true, "importo non superiore a € 100.00"}};

constexpr MinimoVersamento kMinimoLire = {0, Importo::DaDecimillesimi(500'000'000), false, false,
                                          "importo inferiore a lire 50.000"};

constexpr int kNovembre = 11;
constexpr int kTerzoTrimestre = 9;

}  // namespace

const MinimoVersamento& MinimoDelPeriodo(const PeriodoIva& periodo) {
  if (!periodo.euro) return kMinimoLire;
  const MinimoVersamento* vale = &kMinimi.front();
  for (const MinimoVersamento& minimo : kMinimi) {
    if (minimo.dalAnno <= periodo.anno) vale = &minimo;
  }
  return *vale;
}

bool SottoMinimo(const PeriodoIva& periodo, Importo daVersare) {
  if (daVersare <= Importo()) return false;
  const MinimoVersamento& minimo = MinimoDelPeriodo(periodo);
  if (minimo.nellAnno && periodo.aaMese >= (periodo.Trimestre() ? kTerzoTrimestre : kNovembre)) {
    return false;
  }
  return daVersare < minimo.limite || (minimo.compreso && daVersare == minimo.limite);
}

bool NotaSottoMinimo(std::string_view descrizione) {
  return descrizione == kDaAggiungere || descrizione == kMinimoLire.nota ||
         std::ranges::any_of(kMinimi, [descrizione](const MinimoVersamento& minimo) {
           return minimo.nota == descrizione;
         });
}

}  // namespace fenalto::vat
