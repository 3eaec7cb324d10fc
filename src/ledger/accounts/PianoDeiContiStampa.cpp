// Prints of the chart: masters with their accounts, and accounts with an adjustment.
#include <set>
#include <string>
#include <utility>

#include "core/reports/Rapporto.h"
#include "core/reports/TestoStampato.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/accounts/CodiceConto.h"
#include "ledger/accounts/PianoDeiConti.h"

namespace fenalto::ledger {

namespace {

constexpr const char* kTestata = "                      $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ $$$$$$$$  ";
constexpr std::size_t kNomeTestata = 30;

constexpr const char* kTitoloPiano = "PIANO DEI CONTI";
constexpr const char* kColonnePiano =
    "Codice     Descrizione                 P=patrimoniale E=economico  ";
constexpr const char* kRigaMastro = "$$$$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$    $        ";
constexpr const char* kRigaConto =
    "$$$$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$    $  $$$$$$$$$$$$$$$$$$$$$$$";
constexpr std::size_t kLarghezzaPiano = 76;

constexpr const char* kTitoloRettifiche =
    "| CONTI CON RETTIFICHE DI BILANCIO                                |";
constexpr const char* kColonneRettifiche =
    "| codice     descrizione                        |         importo |";
constexpr const char* kNomeRettifiche = "CONTI CON RETTIFICHE DI BILANCIO";
constexpr std::size_t kLarghezzaRettifiche = 67;

/// Steps between two signs of life.
constexpr std::int64_t kOgni = 200;

/// What stands beside the description of a summary account.
const char* Riepilogo(const std::string& cfp) {
  if (UgualeTesto(cfp, "C")) return "riepilogativo Clienti";
  if (UgualeTesto(cfp, "F")) return "riepilogativo Fornitori";
  return "";
}

/// First line of both headings, and those that a long name goes on in; a model has the usual one.
void Testata(reports::Rapporto& rapporto, Ambiente& ambiente, const std::string& titolo,
             const std::string& sotto) {
  if (rapporto.Grafico()) {
    rapporto.TestataDitta();
    rapporto.Titolo("TITOLO", titolo);
    return rapporto.Titolo("TITOLO2", sotto);
  }
  const std::string& nome = rapporto.Ditta().ragSoc1_2;
  Valore data = ambiente.Ora().Oggi();
  for (const std::string& pezzo :
       reports::InRighe(nome.empty() ? ambiente.Ditta() : nome, kNomeTestata)) {
    rapporto.Riga({kTestata}, {pezzo, std::exchange(data, Valore())});
  }
}

Rinvio RinvioA(const Rs& conto) {
  return AlConto(conto.Fields("CFP").Testo(), conto.Fields("Cod").Testo());
}

reports::Tabella<Rs> TabellaRettifiche() {
  const auto testo = [](const char* campo) {
    return [campo](const Rs& rs) { return rs.Fields(campo).Testo(); };
  };
  return reports::Tabella<Rs>(
      {{{"codice", "| $$$$$$$$$$", "R_conto"}, testo("Cod")},
       {{"descrizione", " " + reports::Ripeti("$", 35), "R_descrizione"}, testo("Descrizione")},
       {{"importo", "| " + reports::Ripeti("ç", 15) + "|", "R_IMPORTO"},
        [](const Rs& rs) { return rs.Fields("ImportoSitAziendale").Importo(); }}});
}

/// The chart, a master at a time.
class TabulatoPiano {
 public:
  TabulatoPiano(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente),
        tessarc_(ambiente.ArchivioDi("tessarc")),
        rapporto_(ambiente, uscite) {}

  void Esegui() {
    const auto testata = [this] {
      Testata(rapporto_, ambiente_, kTitoloPiano, "tipo: P = patrimoniale, E = economico");
      if (rapporto_.Grafico()) return;
      rapporto_.Carta().Riga(kTitoloPiano, {}, true);
      rapporto_.Carta().Riga(kColonnePiano);
      rapporto_.Vuota();
    };
    const reports::Cornice cornice{"piano dei conti", kTitoloPiano, "TiPDC", kLarghezzaPiano, true};
    if (!rapporto_.Apri(cornice, testata)) return;
    const auto totale = tessarc_.Singolo("SELECT Count(*) FROM Conti").Intero();
    rapporto_.Avvia("Piano dei conti", totale, kOgni);
    for (Rs rs = tessarc_.Recordset("SELECT * FROM MASTRI order by cod"); !rs.Eof();
         rs.MoveNext()) {
      const std::string cod = rs.Fields("Cod").Testo();
      Mastro(cod, rs.Fields("Descrizione").Testo(), rs.Fields("PatrEcon").Testo());
      if (!Conti(" WHERE COD LIKE " + sql::LetteraleSql(ModelloConti(cod)))) return;
    }
    if (static_cast<std::int64_t>(stampati_.size()) < totale) {
      Mastro("", "CONTI SENZA MASTRO", "");
      if (!Conti("")) return;
    }
    rapporto_.Fine();
  }

 private:
  void Mastro(const std::string& cod, const std::string& descrizione, const std::string& patrEcon) {
    if (!stampati_.empty()) rapporto_.Stacco();
    // The master's line never stands alone at a page's foot.
    rapporto_.Riserva(2);
    rapporto_.Riga({kRigaMastro, {"R_mastro", "R_descrmastro", "R_TIPOMASTRO"}, true},
                   {cod, descrizione, patrEcon});
  }

  /// The accounts of a condition that weren't printed yet: "10" and "10.20" may both be masters.
  bool Conti(const std::string& dove) {
    for (Rs rs = tessarc_.Recordset("SELECT * FROM CONTI" + dove + " order by cod"); !rs.Eof();
         rs.MoveNext()) {
      const std::string cod = rs.Fields("Cod").Testo();
      if (!stampati_.insert(SenzaMaiuscole(cod)).second) continue;
      if (!rapporto_.Passo()) return false;
      rapporto_.Riga({kRigaConto, {"R_conto", "R_descrizione", "R_TIPO", "R_NOTE"}},
                     {cod, rs.Fields("Descrizione").Testo(), rs.Fields("PatrEcon").Testo(),
                      Riepilogo(rs.Fields("CFP").Testo())},
                     RinvioA(rs));
    }
    return !rapporto_.Interrotta();
  }

  Ambiente& ambiente_;
  Archivio& tessarc_;
  reports::Rapporto rapporto_;
  std::set<std::string> stampati_;  ///< folded codes
};

}  // namespace

void StampaPianoDeiConti(Ambiente& ambiente, reports::FabbricaUscite& uscite) {
  TabulatoPiano(ambiente, uscite).Esegui();
}

void StampaContiConRettifiche(Ambiente& ambiente, reports::FabbricaUscite& uscite) {
  const auto tabella = TabellaRettifiche();
  reports::Rapporto rapporto(ambiente, uscite);
  rapporto.Tavola(tabella);
  const std::string rigo = "|" + reports::Ripeti("-", kLarghezzaRettifiche - 2) + "|";
  const auto testata = [&] {
    Testata(rapporto, ambiente, kNomeRettifiche, "");
    if (rapporto.Grafico()) return;
    rapporto.Carta().Riga(rigo);
    rapporto.Carta().Riga(kTitoloRettifiche, {}, true);
    rapporto.Carta().Riga(rigo);
    rapporto.Carta().Riga(kColonneRettifiche);
    rapporto.Carta().Riga(rigo);
  };
  const reports::Cornice cornice{.rapporto = "conti con rettifiche",
                                 .titolo = kNomeRettifiche,
                                 .larghezza = kLarghezzaRettifiche,
                                 .grafico = true,
                                 .lireIntere = true};
  if (!rapporto.Apri(cornice, testata)) return;
  for (Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
           "SELECT * FROM CONTI WHERE ImportoSitAziendale<>0 ORDER BY COD");
       !rs.Eof(); rs.MoveNext()) {
    rapporto.RigaTavola(tabella.Celle(rs), RinvioA(rs));
  }
  rapporto.Grafico() ? rapporto.Filo("") : rapporto.RigaTesto(rigo);
  rapporto.Fine();
}

}  // namespace fenalto::ledger
