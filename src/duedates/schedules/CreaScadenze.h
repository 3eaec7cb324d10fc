// Due dates of an invoice, from its payment code to rows of `Scadenze`.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::duedates {

/// What an invoice gives its due dates.
struct RichiestaScadenze {
  std::string cfp;
  std::string conto;
  std::string codPag;
  Data data;        ///< from which the rates count
  Importo importo;  ///< total to schedule
  Importo iva;      ///< the part that the second payment code schedules; 0 for none
  std::string descrizione;
  Data dataFat;
  std::string numFat;
  std::int64_t numProt = 0;
  std::string riva;
  int anno = 0;
  std::int64_t articolo = 0;
  std::string programma;  ///< "fatture", "fattintra", "bolladog", ...
  std::string tipoDoc;
};

/// A due date to come.
struct RataDocumento {
  Data data;
  Importo importo;
  std::string tipo;
};

/// The due dates that CreaScadenze would write: those of the VAT on its own payment code first,
/// then those of the rest.
std::vector<RataDocumento> RateDocumento(Ambiente& ambiente, const RichiestaScadenze& richiesta,
                                         std::vector<std::string>& avvisi);

/// Whose due dates; nobody's when it isn't a customer ("C") or supplier ("F").
struct ParteScadenze {
  std::string cfp;
  std::string conto;
};

/// Writes the due dates in the transaction that the caller holds, and adds lines to the log; true
/// when rows were written. Warnings to be shown to the user are added to `avvisi`: nothing is told
/// from here, since the caller holds a transaction.
bool CreaScadenze(Ambiente& ambiente, const RichiestaScadenze& richiesta, std::string& log,
                  std::vector<std::string>& avvisi);

/// Due dates of a registration that are paid, in part or whole, or presented, by number: name and
/// state of each, to be told before the registration goes or changes. `parte` as below.
std::vector<std::string> ScadenzeMosse(Ambiente& ambiente, int anno, std::int64_t articolo,
                                       const ParteScadenze& parte = {});

/// Deletes the due dates of a registration in the transaction that the caller holds, and adds a
/// line to the log; where there are none the log says nothing. When any of them has moved past
/// state "00", or a person has written or changed it, none is deleted, and false is returned. With
/// `parte` those of another party, which an erased registration of that number has left, aren't
/// looked at.
bool EliminaScadenzeFattura(Ambiente& ambiente, int anno, std::int64_t articolo, std::string& log,
                            const ParteScadenze& parte = {});

}  // namespace fenalto::duedates
