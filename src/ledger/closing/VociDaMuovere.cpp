#include "ledger/closing/VociDaMuovere.h"

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/accounts/CodiceConto.h"

namespace fenalto::ledger {

namespace {

constexpr const char* kClasseContoPiano = "P";

}  // namespace

VociDaMuovere::VociDaMuovere(Archivio& tessarc, int anno)
    : tessarc_(tessarc), saldi_(tessarc, anno) {
  LeggiParti("Clienti", "C");
  LeggiParti("Fornitori", "F");
}

void VociDaMuovere::LeggiParti(const std::string& tabella, const std::string& cfp) {
  Rs rs = tessarc_.Recordset("SELECT Cod, RAGSOC1, Conto FROM " + tabella + " ORDER BY COD");
  for (; !rs.Eof(); rs.MoveNext()) {
    std::string cod = rs.Fields(std::size_t{0}).Testo();
    // A customer and a supplier may bear one code: only what moved in this class and year counts.
    SaldiEsercizio::Chiave chiave = SaldiEsercizio::ChiaveDi(cfp, cod);
    const bool mossa = saldi_.Voci().contains(chiave);
    if (mossa) {
      parti_[SenzaMaiuscole(rs.Fields(2).Testo())].push_back(
          {cfp, std::move(cod), rs.Fields(1).Testo()});
      diParti_.insert(std::move(chiave));
    }
  }
}

std::vector<VoceSaldo> VociDaMuovere::Conti(std::string_view patrEcon,
                                            const std::vector<std::string>& esclusi) {
  viste_.clear();
  std::set<std::string> fuori;
  for (const std::string& conto : esclusi) fuori.insert(SenzaMaiuscole(conto));
  std::vector<VoceSaldo> voci;
  AggiungiConti(tessarc_.Recordset("SELECT * FROM CONTI WHERE " +
                                   sql::Criterio("PATRECON", "=", patrEcon) + " ORDER BY COD"),
                fuori, voci);
  return voci;
}

std::vector<VoceSaldo> VociDaMuovere::DeiMastriPatrimoniali() {
  viste_.clear();
  std::vector<VoceSaldo> voci;
  Rs mastri = tessarc_.Recordset("SELECT * FROM MASTRI WHERE " +
                                 sql::Criterio("PATRECON", "=", kPatrimoniale) + " ORDER BY COD");
  for (; !mastri.Eof(); mastri.MoveNext()) {
    AggiungiConti(tessarc_.Recordset("SELECT * FROM CONTI WHERE COD LIKE " +
                                     sql::LetteraleSql(ModelloConti(mastri.Fields("Cod").Testo())) +
                                     " ORDER BY COD"),
                  {}, voci);
  }
  return voci;
}

void VociDaMuovere::AggiungiConti(Rs conti, const std::set<std::string>& esclusi,
                                  std::vector<VoceSaldo>& voci) {
  for (; !conti.Eof(); conti.MoveNext()) {
    const std::string cod = conti.Fields("Cod").Testo();
    const std::string piegato = SenzaMaiuscole(cod);
    if (esclusi.contains(piegato)) continue;
    const std::string descrizione = conti.Fields("Descrizione").Testo();
    const std::string classe = conti.Fields("CFP").Testo();
    Aggiungi(kClasseContoPiano, cod, descrizione, voci);
    // Booked on the summary account itself, under its own class: nobody else's but a party's that
    // bears the same code.
    if (!classe.empty() && !diParti_.contains(SaldiEsercizio::ChiaveDi(classe, cod))) {
      Aggiungi(classe, cod, descrizione, voci);
    }
    const auto parti = parti_.find(piegato);
    if (parti == parti_.end()) continue;
    for (const Parte& parte : parti->second) {
      Aggiungi(parte.cfp, parte.cod, parte.descrizione, voci);
    }
  }
}

void VociDaMuovere::Aggiungi(const std::string& cfp, const std::string& conto,
                             const std::string& descrizione, std::vector<VoceSaldo>& voci) {
  // "10" and "10.20" may both be masters: an account is moved once.
  if (!viste_.insert(SaldiEsercizio::ChiaveDi(cfp, conto)).second) return;
  const Importo saldo = saldi_.Di(cfp, conto);
  if (!saldo.Zero()) voci.push_back({cfp, conto, descrizione, saldo});
}

}  // namespace fenalto::ledger
