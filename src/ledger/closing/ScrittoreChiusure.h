// The registrations of one run of the year end: two rows each, under consecutive numbers.
//
// The caller holds the numbering lock of "ARTICOLI" and the transaction.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ledger/closing/OperazioniAnno.h"
#include "ledger/closing/VociDaMuovere.h"
#include "ledger/registrations/RegistrazioneAutomatica.h"

namespace fenalto::ledger {

struct CorsaChiusura {
  Origine origine = Origine::Chiusura;
  int annoChiuso = 0;   ///< year that the run closes
  int annoScritto = 0;  ///< year of its registrations
  Data dt;
  std::string causale;
  std::string contropartita;
  std::string descrizione = {};
  bool definitiva = false;      ///< of an opening
  std::int64_t sostituite = 0;  ///< provisional openings that gave way
};

/// Told after each registration how many are written; false gives the run up.
using SuRegistrazione = std::function<bool(std::int64_t)>;

/// Writes one registration for each entry, and the run itself; nothing for no entries. On an
/// opening the balance keeps its side, otherwise it takes the other one. Nothing when the run was
/// given up.
std::optional<OperazioneAnno> ScriviCorsa(Ambiente& ambiente, Archivio& tessarc,
                                          const CorsaChiusura& corsa,
                                          const std::vector<VoceSaldo>& voci,
                                          const SuRegistrazione& avanza);

}  // namespace fenalto::ledger
