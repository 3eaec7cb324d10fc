#include "ledger/statements/VisitaConti.h"

#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/accounts/CodiceConto.h"
#include "ledger/accounts/ContiClientiFornitori.h"

namespace fenalto::ledger {

namespace {

/// Steps between two signs of life.
constexpr std::int64_t kOgni = 50;

/// Table of the parties of a class; empty for plain accounts.
std::string TabellaParti(const std::string& cfp) {
  if (UgualeTesto(cfp, "C")) return "Clienti";
  if (UgualeTesto(cfp, "F")) return "Fornitori";
  return "";
}

std::string TestoParti(const std::string& tabella, const std::string& conto) {
  return "SELECT Cod, RAGSOC1 FROM " + tabella + " WHERE " + sql::Criterio("Conto", "=", conto) +
         " ORDER BY COD";
}

std::string TestoMossi(const PeriodoVisita& periodo) {
  std::string testo =
      "SELECT Movimenti.CFP, Movimenti.Conto FROM Movimenti LEFT JOIN Articoli ON (Movimenti.Anno "
      "= Articoli.Anno) AND (Movimenti.NumDoc = Articoli.NumDoc) WHERE ";
  testo += sql::Criterio("Articoli.Dt", ">=", periodo.daData);
  testo += " AND " + sql::Criterio("Articoli.Dt", "<=", periodo.aData);
  if (periodo.anno != 0) testo += " AND " + sql::Criterio("Articoli.Anno", "=", periodo.anno);
  return testo + " GROUP BY Movimenti.CFP, Movimenti.Conto ORDER BY Movimenti.CFP, Movimenti.Conto";
}

}  // namespace

VisitaConti::VisitaConti(Ambiente& ambiente, RichiestaVisita richiesta)
    : ambiente_(ambiente),
      archivio_(ambiente.ArchivioDi("tessarc")),
      richiesta_(std::move(richiesta)),
      saldi_() {
  saldi_.reserve(richiesta_.periodi.size());
  for (std::size_t i = 0; i < richiesta_.periodi.size(); ++i) saldi_.emplace_back(archivio_);
}

bool VisitaConti::Visita(const std::string& testo, const SuMastro& su) {
  std::int64_t totale = 0;
  for (const char* tabella : {"Conti", "Clienti", "Fornitori"}) {
    totale += archivio_.Singolo(std::string("SELECT Count(*) FROM ") + tabella).Intero();
  }
  avanzamento_ = ambiente_.Dialogo().Avvia(testo, totale);

  std::string mastri =
      "SELECT * FROM MASTRI WHERE " + sql::Criterio("COD", ">=", richiesta_.daMastro);
  if (!richiesta_.aaMastro.empty())
    mastri += " AND " + sql::Criterio("COD", "<=", richiesta_.aaMastro);
  if (!richiesta_.patrEcon.empty()) {
    mastri += " AND " + sql::Criterio("PATRECON", "=", richiesta_.patrEcon);
  }
  bool avanti = true;
  for (Rs rs = archivio_.Recordset(mastri + " ORDER BY COD"); avanti && !rs.Eof(); rs.MoveNext()) {
    MastroVisitato mastro{rs.Fields("Cod").Testo(),
                          rs.Fields("Descrizione").Testo(),
                          rs.Fields("PatrEcon").Testo(),
                          {}};
    avanti = LeggiConti(mastro);
    if (avanti && !mastro.conti.empty()) su(mastro);
  }
  if (avanti) {
    MastroVisitato mancante{"", "MASTRO MANCANTE", richiesta_.patrEcon, {}};
    avanti = LeggiMancanti(mancante);
    if (avanti && !mancante.conti.empty()) su(mancante);
  }
  for (SaldoConto& saldo : saldi_) saldo.Chiudi();
  avanzamento_.reset();
  return avanti;
}

bool VisitaConti::LeggiConti(MastroVisitato& mastro) {
  Rs rs = archivio_.Recordset("SELECT * FROM CONTI WHERE COD LIKE " +
                              sql::LetteraleSql(ModelloConti(mastro.cod)) + " ORDER BY COD");
  for (; !rs.Eof(); rs.MoveNext()) {
    if (!Avanza()) return false;
    ContoVisitato conto;
    conto.cod = rs.Fields("Cod").Testo();
    conto.cfp = rs.Fields("CFP").Testo();
    if (conto.cfp.empty()) conto.cfp = kClassePiano;
    // "10" and "10.20" may both be masters: an account belongs to the first.
    if (!Segna(conto.cfp, conto.cod)) continue;
    conto.descrizione = rs.Fields("Descrizione").Testo();
    conto.rettifica = rs.Fields("ImportoSitAziendale").Importo();
    conto.saldi = Calcola(conto.cfp, conto.cod);
    if (Segna(std::string(kClassePiano), conto.cod)) {
      const Saldi suoi = Calcola(std::string(kClassePiano), conto.cod);
      for (std::size_t i = 0; i < suoi.size(); ++i) conto.saldi[i] += suoi[i];
    }
    for (const char* classe : {"C", "F"}) {
      if (!LeggiParti(conto, classe)) return false;
    }
    mastro.conti.push_back(std::move(conto));
  }
  return true;
}

const std::set<std::string>& VisitaConti::Riepilogativi(const std::string& cfp) {
  const auto [posto, nuovo] = riepilogativi_.try_emplace(cfp);
  if (!nuovo) return posto->second;
  Rs rs = archivio_.Recordset("SELECT Conto FROM " + TabellaParti(cfp) + " GROUP BY Conto");
  for (; !rs.Eof(); rs.MoveNext()) posto->second.insert(SenzaMaiuscole(rs.Fields(0).Testo()));
  return posto->second;
}

bool VisitaConti::LeggiParti(ContoVisitato& conto, const std::string& cfp) {
  if (!Riepilogativi(cfp).contains(SenzaMaiuscole(conto.cod))) return true;
  // A customer and a supplier may bear one code.
  const std::set<std::string>& mosse = PartiMosse(cfp);
  Rs rs = archivio_.Recordset(TestoParti(TabellaParti(cfp), conto.cod));
  for (; !rs.Eof(); rs.MoveNext()) {
    if (!Avanza()) return false;
    ParteVisitata parte{rs.Fields(0).Testo(), cfp, rs.Fields(1).Testo(), {}};
    if (!mosse.contains(SenzaMaiuscole(parte.cod))) continue;
    if (!Segna(parte.cfp, parte.cod)) continue;
    parte.saldi = Calcola(parte.cfp, parte.cod);
    for (std::size_t i = 0; i < conto.saldi.size(); ++i) conto.saldi[i] += parte.saldi[i];
    if (richiesta_.parti) conto.parti.push_back(std::move(parte));
  }
  return true;
}

const std::set<std::string>& VisitaConti::PartiMosse(const std::string& cfp) {
  const auto [posto, nuovo] = mosse_.try_emplace(SenzaMaiuscole(cfp));
  std::set<std::string>& mosse = posto->second;
  if (!nuovo) return mosse;
  // A year at a time, which the index of balances answers without looking at the other accounts.
  const std::string primo = "SELECT Min(Anno) FROM Movimenti";
  for (Valore anno = archivio_.Singolo(primo); !anno.Nullo();
       anno = archivio_.Singolo(primo + " WHERE " + sql::Criterio("Anno", ">", anno))) {
    Rs rs = archivio_.Recordset("SELECT Conto FROM Movimenti WHERE " +
                                sql::Criterio("Anno", "=", anno) + " AND " +
                                sql::Criterio("CFP", "=", cfp) + " GROUP BY Conto");
    for (; !rs.Eof(); rs.MoveNext()) mosse.insert(SenzaMaiuscole(rs.Fields(0).Testo()));
  }
  return mosse;
}

bool VisitaConti::LeggiMancanti(MastroVisitato& mancante) {
  Mastri mastri;
  for (Rs rs = archivio_.Recordset("SELECT Cod, PatrEcon FROM MASTRI"); !rs.Eof(); rs.MoveNext()) {
    mastri.emplace(SenzaMaiuscole(rs.Fields(0).Testo()), SenzaMaiuscole(rs.Fields(1).Testo()));
  }
  for (const PeriodoVisita& periodo : richiesta_.periodi) {
    Rs rs = archivio_.Recordset(TestoMossi(periodo));
    for (; !rs.Eof(); rs.MoveNext()) {
      if (!Avanza()) return false;
      ContoVisitato conto;
      conto.cfp = rs.Fields(0).Testo();
      conto.cod = rs.Fields(1).Testo();
      if (!Segna(conto.cfp, conto.cod) || !Manca(conto, mastri)) continue;
      conto.descrizione = NomeConto(ambiente_, conto.cfp, conto.cod);
      if (conto.descrizione.empty()) conto.descrizione = "conto non in archivio";
      conto.saldi = Calcola(conto.cfp, conto.cod);
      mancante.conti.push_back(std::move(conto));
    }
  }
  return true;
}

bool VisitaConti::Manca(const ContoVisitato& mosso, const Mastri& mastri) {
  const bool parte = !TabellaParti(mosso.cfp).empty();
  const std::string cod = parte ? NzStr(ambiente_.Cerca("tessarc", TabellaParti(mosso.cfp),
                                                        {{"Cod", mosso.cod}}, "Conto"))
                                : mosso.cod;
  Rs conto = archivio_.Recordset("SELECT * FROM CONTI WHERE " + sql::Criterio("Cod", "=", cod));
  const bool inPiano = !conto.Eof();
  const std::string piegato = SenzaMaiuscole(cod);
  for (std::size_t i = inPiano ? piegato.find('.') : std::string::npos; i != std::string::npos;
       i = piegato.find('.', i + 1)) {
    const auto mastro = mastri.find(piegato.substr(0, i));
    if (mastro == mastri.end()) continue;
    if (richiesta_.patrEcon.empty() || mastro->second == "p" || mastro->second == "e") return false;
  }
  if (!MastroScelto(parte ? "" : cod.substr(0, cod.rfind('.')), mastri)) return false;
  const bool economico = !parte && inPiano && UgualeTesto(conto.Fields("PatrEcon").Testo(), "E");
  return richiesta_.patrEcon.empty() || UgualeTesto(richiesta_.patrEcon, economico ? "E" : "P");
}

bool VisitaConti::MastroScelto(const std::string& cod, const Mastri& mastri) const {
  const auto dentro = [this](const std::string& mastro) {
    return ConfrontaTesto(mastro, richiesta_.daMastro) >= 0 &&
           (richiesta_.aaMastro.empty() || ConfrontaTesto(mastro, richiesta_.aaMastro) <= 0);
  };
  if (mastri.empty() || (dentro(mastri.begin()->first) && dentro(mastri.rbegin()->first))) {
    return true;
  }
  return !cod.empty() && dentro(cod);
}

Saldi VisitaConti::Calcola(const std::string& cfp, const std::string& cod) {
  Saldi saldi;
  for (std::size_t i = 0; i < saldi_.size(); ++i) {
    SaldoConto::Richiesta richiesta;
    richiesta.mantieniAperto = true;
    richiesta.conto = cod;
    richiesta.cfp = cfp;
    richiesta.causaleEsclusa = richiesta_.escludoCausale;
    richiesta.anno = richiesta_.periodi[i].anno;
    richiesta.daData = richiesta_.periodi[i].daData;
    richiesta.aData = richiesta_.periodi[i].aData;
    saldi[i] = saldi_[i].Calcola(richiesta);
  }
  return saldi;
}

bool VisitaConti::Segna(const std::string& cfp, const std::string& cod) {
  return visti_.emplace(SenzaMaiuscole(cfp), SenzaMaiuscole(cod)).second;
}

bool VisitaConti::Avanza() {
  return ++fatti_ % kOgni != 0 || avanzamento_->Avanza(fatti_);
}

}  // namespace fenalto::ledger
