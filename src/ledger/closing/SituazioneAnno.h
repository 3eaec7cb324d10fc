// How far the closing of a year is: which operations were done, what they wrote, and what is still
// out of balance.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "ledger/closing/OperazioniAnno.h"

namespace fenalto::ledger {

/// One of the five operations, in the order proposed.
struct PassoAnno {
  std::string nome;
  std::string stato;  ///< "fatta", "da fare", ...
  bool fatta = false;
  std::string quando;
  std::string utente;
  std::int64_t daNumDoc = 0;
  std::int64_t aNumDoc = 0;
  std::int64_t quante = 0;  ///< registrations found in the books
  std::string resta;        ///< what is out of balance; empty when nothing is
  // Registrations behind it; `origine` 0 for none.
  int annoScritto = 0;
  int origine = 0;
};

struct SituazioneAnno {
  std::vector<PassoAnno> passi;
  std::vector<OperazioneAnno> operazioni;  ///< the last one first
  /// What to do next, in words.
  std::string prossimo;
};

SituazioneAnno LeggiSituazioneAnno(Ambiente& ambiente);

/// A registration of an operation, as it is listed.
struct RegistrazioneAnno {
  std::int64_t numDoc = 0;
  Data dt;
  std::string cfp;
  std::string conto;
  std::string descrizione;
  Importo dare;
  Importo avere;
};

/// Registrations of a year that a kind of run wrote, or those of one run.
std::vector<RegistrazioneAnno> RegistrazioniDelPasso(Ambiente& ambiente, const PassoAnno& passo);
std::vector<RegistrazioneAnno> RegistrazioniDellOperazione(Ambiente& ambiente,
                                                           const OperazioneAnno& operazione);

}  // namespace fenalto::ledger
