// The least VAT that is paid, year by year, and what happens to a debt below it.
#pragma once

#include <string_view>

#include "vat/postings/PeriodoIva.h"

namespace fenalto::vat {

/// From a year on: what is too little to be paid.
struct MinimoVersamento {
  int dalAnno = 0;
  Importo limite;
  bool compreso = false;  ///< a debt of just that amount isn't paid either
  bool nellAnno = false;  ///< carried within the year alone
  std::string_view nota;  ///< under a debt that isn't paid
};

inline constexpr std::string_view kDaAggiungere = "da aggiungere al prossimo versamento";

/// The rule that holds in the year of a period, in its currency.
/// Source: D.P.R. 100/1998, art. 1(4) and D.P.R. 542/1999, art. 7 (50.000 lire, 25.82 euro); from
/// 2024 D.Lgs. 1/2024, art. 9 (100 euro).
const MinimoVersamento& MinimoDelPeriodo(const PeriodoIva& periodo);

/// Whether what a period owes isn't paid in it but added to the next one. What must be paid by 16
/// December at the latest (months from November, quarters from the third on, where the debt is
/// carried within the year alone) is paid whatever the amount.
/// Source: D.Lgs. 1/2024, art. 9.
bool SottoMinimo(const PeriodoIva& periodo, Importo daVersare);

/// Whether a stored line of a settlement is a note under such a debt, of whatever year.
bool NotaSottoMinimo(std::string_view descrizione);

}  // namespace fenalto::vat
