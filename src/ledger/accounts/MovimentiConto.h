// The movements of one account with the running balance.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::ledger {

struct RigaMovimentoConto {
  Data dt;
  int anno = 0;
  std::int64_t articolo = 0;
  std::string causale;
  std::string descrizione;
  std::string controp;  ///< contra-entry, "+diversi" when it stands for more than one account
  Importo dare;
  Importo avere;
  Importo saldo;  ///< running, openings included
};

/// Movements of an account of a year (of all years when 0) between two dates, in order of date and
/// article; `massimo` bounds the rows.
std::vector<RigaMovimentoConto> MovimentiDiConto(Ambiente& ambiente, const std::string& cfp,
                                                 const std::string& conto, int anno, Data daDt,
                                                 Data aaDt, std::size_t massimo = 200'000);

}  // namespace fenalto::ledger
