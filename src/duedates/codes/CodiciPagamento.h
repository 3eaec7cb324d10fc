// The archive of payment codes: fields, checks, and its rates written along with it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/archives/DescrizioneArchivio.h"
#include "duedates/codes/RateCodice.h"

namespace fenalto::duedates {

/// `CodiciPagamento`. The window owns `rate` too, and shows it beside the record.
archives::DescrizioneArchivio DescrizioneCodiciPagamento(const std::shared_ptr<RateCodice>& rate);

/// One due date that a code gives in the test of its form.
struct RigaProva {
  Data data;
  Importo importo;
  std::string tipo;
  /// What a user wouldn't expect of the date; empty for nothing.
  std::string nota;
};

struct EsitoProva {
  std::vector<RigaProva> righe;
  std::vector<std::string> avvisi;
};

/// Due dates of an amount for a date, with the code as it stands on the screen.
EsitoProva ProvaCodice(Ambiente& ambiente, const CodicePagamento& codice, Data data,
                       Importo importo);

}  // namespace fenalto::duedates
