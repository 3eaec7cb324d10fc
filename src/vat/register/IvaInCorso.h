// The VAT of the period that is settled next, as the books have it now: for a look, nothing is told
// or written.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "vat/settlement/VersamentoIva.h"

namespace fenalto::vat {

struct IvaInCorso {
  PeriodoIva periodo;
  Data versamento;
  Importo importo;           ///< above zero is owed, below is a credit
  bool sottoMinimo = false;  ///< owed, but too little to be paid with this period
  bool finito = false;       ///< the period is over: nothing but late documents is to come
  std::vector<PeriodoIva> arretrati;
  std::string errore;  ///< why there is no amount
};

/// Of the session's year; periods that are over and have no document don't count. Nothing when its
/// periods are settled, or none has begun. While periods before it wait for their settlement, the
/// credit that they leave isn't known and isn't counted.
std::optional<IvaInCorso> LeggiIvaInCorso(Ambiente& ambiente);

}  // namespace fenalto::vat
