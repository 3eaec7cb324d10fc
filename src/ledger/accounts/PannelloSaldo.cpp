#include "ledger/accounts/PannelloSaldo.h"

#include "core/reports/DecimaliStampe.h"

namespace fenalto::ledger {

SaldoConto::Richiesta RichiestaSaldo(Ambiente& ambiente, const std::string& cfp) {
  // Movements may be dated ahead: the balance looks this far.
  constexpr int kAnniSaldo = 50;
  constexpr int kMesiAnno = 12;
  SaldoConto::Richiesta richiesta;
  richiesta.cfp = cfp;
  // Over all years the openings of each would count what the years before have moved.
  richiesta.anno = ambiente.Anno();
  richiesta.daData = Ambiente::DataMinima();
  richiesta.aData = ambiente.Ora().Oggi().PiuMesi(kAnniSaldo * kMesiAnno);
  return richiesta;
}

std::vector<std::string> RigheSaldo(Ambiente& ambiente, const std::string& cfp,
                                    const std::string& codice) {
  SaldoConto saldoConto(ambiente.ArchivioDi("tessarc"));
  SaldoConto::Richiesta richiesta = RichiestaSaldo(ambiente, cfp);
  richiesta.conto = codice;
  const Saldo saldo = saldoConto.Calcola(richiesta);

  const reports::DecimaliStampe decimali(ambiente);
  const auto riga = [&](const char* sagoma, Importo importo) {
    return decimali.SulPannello(sagoma, importo, ambiente.Euro());
  };
  return {riga("s.do iniz. ççççççççççççççç", saldo.saldoIniziale),
          riga("     dare  ççççççççççççççç", saldo.totaleDare),
          riga("     avere ççççççççççççççç", saldo.totaleAvere),
          riga("     saldo ççççççççççççççç", saldo.Finale())};
}

}  // namespace fenalto::ledger
