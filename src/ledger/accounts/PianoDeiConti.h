// The chart of accounts: masters and accounts as archives, and the list of everything that a
// movement may name.
#pragma once

#include <string>
#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::ledger {

/// `Mastri`, `Conti`.
std::vector<archives::DescrizioneArchivio> ArchiviPianoDeiConti();

/// Keeps `ContiClientiFornitori` true after `Conti`, `Clienti` or `Fornitori` was written: with
/// `eliminato` the row of code and class is erased, with `nuovo` one is added, otherwise the row
/// found is changed. A row that isn't there is told, and false is returned.
bool AggiornaContiClientiFornitori(Ambiente& ambiente, bool eliminato, bool nuovo,
                                   const std::string& cod, const std::string& cfp,
                                   const std::string& descrizione,
                                   const std::string& descrizione2 = "");

/// A master or an account, as the chart shows it.
struct VocePiano {
  std::string cod;
  std::string descrizione;
  std::string cfp;  ///< of accounts
  std::string patrEcon;
};
struct PianoLetto {
  std::vector<VocePiano> mastri;
  std::vector<VocePiano> conti;
};
/// The whole chart, in order of code.
PianoLetto LeggiPiano(Ambiente& ambiente);

/// "Stampa Piano dei Conti": masters with their accounts.
void StampaPianoDeiConti(Ambiente& ambiente, reports::FabbricaUscite& uscite);
/// "Stampa Conti con  rettifiche": accounts with an adjustment of the statements.
void StampaContiConRettifiche(Ambiente& ambiente, reports::FabbricaUscite& uscite);

}  // namespace fenalto::ledger
