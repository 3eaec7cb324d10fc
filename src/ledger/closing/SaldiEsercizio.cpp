#include "ledger/closing/SaldiEsercizio.h"

#include "core/values/Testo.h"
#include "ledger/accounts/SaldoConto.h"

namespace fenalto::ledger {

namespace {

/// Every day that a registration may bear, none at all included.
const Data kPrimoGiorno = Data::DaGma(1, 1, 1).value();
const Data kUltimoGiorno = Data::DaGma(31, 12, 9999).value();

}  // namespace

SaldiEsercizio::SaldiEsercizio(Archivio& tessarc, int anno) {
  SaldoConto::Richiesta richiesta;
  richiesta.mantieniAperto = true;
  richiesta.anno = anno;
  richiesta.daData = kPrimoGiorno;
  richiesta.aData = kUltimoGiorno;
  Somma(tessarc.Recordset(SaldoConto::TestoMovimenti(richiesta)));
  Somma(tessarc.Recordset(SaldoConto::TestoAperture(richiesta)));
}

void SaldiEsercizio::Somma(Rs righe) {
  for (; !righe.Eof(); righe.MoveNext()) {
    std::string cfp = righe.Fields(std::size_t{0}).Testo();
    std::string conto = righe.Fields(1).Testo();
    const Importo saldo = righe.Fields(2).Importo() - righe.Fields(3).Importo();
    Chiave chiave = ChiaveDi(cfp, conto);
    const auto [posto, nuova] = voci_.try_emplace(std::move(chiave));
    if (nuova) posto->second = {std::move(cfp), std::move(conto), {}};
    posto->second.saldo += saldo;
  }
}

SaldiEsercizio::Chiave SaldiEsercizio::ChiaveDi(const std::string& cfp, const std::string& conto) {
  return {SenzaMaiuscole(cfp), SenzaMaiuscole(conto)};
}

Importo SaldiEsercizio::Di(const std::string& cfp, const std::string& conto) const {
  const auto trovata = voci_.find(ChiaveDi(cfp, conto));
  return trovata == voci_.end() ? Importo() : trovata->second.saldo;
}

}  // namespace fenalto::ledger
