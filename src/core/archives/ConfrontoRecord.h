// A record as it was read against what stands in its table now: what every confirmation of a
// record asks, since statements of other functions don't ask for its lock.
#pragma once

#include <string>
#include <vector>

#include "core/store/Rs.h"

namespace fenalto::archives {

/// The current row, one value a column.
std::vector<Valore> ValoriDi(const Rs& riga);

/// Texts that differ in case only are the same to the store, not to who reads them.
bool RecordIdentici(const std::vector<Valore>& a, const std::vector<Valore>& b);

/// Asks whether to write what is on the screen over what another station or function has changed
/// meanwhile, column by column. `nome` is the record's ("agente 12").
std::string DomandaCambiato(const std::string& nome, const std::vector<sql::ColonnaUscita>& colonne,
                            const std::vector<Valore>& letti, const std::vector<Valore>& ora);

/// What is told when the record has been deleted since it was opened and becomes a new one.
std::string TestoEliminato(const std::string& nome);

}  // namespace fenalto::archives
