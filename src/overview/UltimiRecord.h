// The records that the user goes back to: those touched last, then the last ones of the books.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::overview {

/// A record as a list shows it.
struct RecordToccato {
  Rinvio rinvio;
  /// "registrazione", "fattura", "cliente", "fornitore", "prodotto", "documento"
  std::string genere;
  std::string titolo;     ///< "Rossi Mario", "affitto del mese"
  std::string dettaglio;  ///< "art. 12 del 15/03"
};

/// At most `quanti`, the last one first. Of registrations and documents only those of the selected
/// year; what was
/// erased meanwhile, or the user has no right to, isn't there. The last registrations of the year
/// fill the places left.
std::vector<RecordToccato> UltimiRecord(Ambiente& ambiente, std::size_t quanti);

}  // namespace fenalto::overview
