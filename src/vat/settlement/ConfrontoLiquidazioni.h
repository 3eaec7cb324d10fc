// Settlements beside each other: a period and the same of the year before, the periods of a year.
#pragma once

#include <string>
#include <vector>

#include "vat/settlement/LiquidazioneIva.h"

namespace fenalto::vat {

/// A line of a settlement with what the same line told a year before.
struct RigaAffiancata {
  std::string descrizione;
  Importo importo;
  Importo precedente;
  bool nota = false;  ///< a text without amounts
};

/// The lines of `corrente` in their order, each with the amount that the next line of the same
/// text has in `precedente`; a line that only `precedente` has stands where it stood there. Notes
/// of `precedente` are left out.
std::vector<RigaAffiancata> AffiancaLiquidazioni(const std::vector<RigaLiquidazione>& corrente,
                                                 const std::vector<RigaLiquidazione>& precedente);

/// VAT that falls due and VAT deducted in a period.
struct IvaDelPeriodo {
  PeriodoIva periodo;
  Importo debito;
  Importo credito;
  bool presente = false;  ///< settled, or the one given
};

/// Months or quarters of the session's year: those settled as they were stored, and `corrente` as
/// it is now. A register counts as a whole on the side of its sign, so that credit notes lower it.
std::vector<IvaDelPeriodo> AndamentoIva(Ambiente& ambiente, const Liquidazione& corrente);

/// The first month or quarter of the session's year that isn't settled and that no later one is
/// settled after; empty at the end of the year.
std::string PeriodoDaLiquidare(Ambiente& ambiente);

}  // namespace fenalto::vat
