// When the VAT of a period is paid, and which period comes next.
#pragma once

#include <optional>
#include <vector>

#include "vat/postings/PeriodoIva.h"

namespace fenalto::vat {

/// Day by which the VAT of a month or quarter is paid: the 16th of the month after a month, of the
/// second month after a quarter, of March after the last quarter. What would fall from 1 to 20
/// August is paid on the 20th; a Saturday, a Sunday or Easter Monday passes to the next working day
/// (no other holiday falls on those days). The null date for the year's summary.
Data GiornoVersamento(const PeriodoIva& periodo);

/// A month or quarter, and whether its settlement is stored.
struct StatoPeriodo {
  PeriodoIva periodo;
  bool liquidato = false;
};

/// What is settled next.
struct PeriodoInVista {
  PeriodoIva periodo;
  std::vector<PeriodoIva> arretrati;  ///< behind it, past their day of payment and not settled
};
/// Among the periods that have begun and follow the last one settled: the first whose day of
/// payment isn't past, or else the last. `stati` in their order, without the year's summary.
std::optional<PeriodoInVista> ScegliPeriodoInVista(const std::vector<StatoPeriodo>& stati,
                                                   Data oggi);

}  // namespace fenalto::vat
