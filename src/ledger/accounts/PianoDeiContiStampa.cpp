// Prints of the chart: masters with their accounts, and accounts with an adjustment.
#include <memory>
#include <set>
#include <string>

#include "core/reports/Cornice.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/accounts/CodiceConto.h"
#include "ledger/accounts/PianoDeiConti.h"

namespace fenalto::ledger {

namespace {

constexpr const char* kTestata = "                      $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ $$$$$$$$  ";

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
constexpr const char* kRigaRettifica =
    "| $$$$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$| ççççççççççççççç|";
constexpr std::size_t kLarghezzaRettifiche = 67;

/// Steps between two signs of life.
constexpr std::int64_t kOgni = 200;

/// What stands beside the description of a summary account.
const char* Riepilogo(const std::string& cfp) {
  if (UgualeTesto(cfp, "C")) return "riepilogativo Clienti";
  if (UgualeTesto(cfp, "F")) return "riepilogativo Fornitori";
  return "";
}

/// First line of both headings.
void Testata(reports::Stampa& stampa, Ambiente& ambiente) {
  const std::string nome = reports::LeggiDatiDitta(ambiente).ragSoc1_2;
  stampa.Campo(1, nome.empty() ? ambiente.Ditta() : nome);
  stampa.Campo(2, ambiente.Ora().Oggi());
  stampa.Riga(kTestata);
}

/// The chart, a master at a time.
class TabulatoPiano {
 public:
  TabulatoPiano(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), tessarc_(ambiente.ArchivioDi("tessarc")), stampa_(ambiente, uscite) {}

  void Esegui() {
    if (reports::ApriStampa(stampa_, ambiente_,
                            {"piano dei conti", "PIANO DEI CONTI", "", kLarghezzaPiano}) ==
        reports::ModoStampa::Fermata) {
      return;
    }
    stampa_.Intestazione([this] {
      Testata(stampa_, ambiente_);
      stampa_.Riga("PIANO DEI CONTI", {}, true);
      stampa_.Riga(kColonnePiano);
      stampa_.Riga("");
    });
    const auto totale = tessarc_.Singolo("SELECT Count(*) FROM Conti").Intero();
    avanzamento_ = ambiente_.Dialogo().Avvia("Piano dei conti", totale);
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
    stampa_.Fine();
  }

 private:
  void Mastro(const std::string& cod, const std::string& descrizione, const std::string& patrEcon) {
    if (!stampati_.empty() && stampa_.RigheLibere() > 0) stampa_.Riga("");
    // The master's line never stands alone at a page's foot.
    stampa_.Riserva(2);
    stampa_.Campo(1, cod);
    stampa_.Campo(2, descrizione);
    stampa_.Campo(3, patrEcon);
    stampa_.Riga(kRigaMastro, {}, true);
  }

  /// The accounts of a condition that weren't printed yet: "10" and "10.20" may both be masters.
  bool Conti(const std::string& dove) {
    for (Rs rs = tessarc_.Recordset("SELECT * FROM CONTI" + dove + " order by cod"); !rs.Eof();
         rs.MoveNext()) {
      if (!stampati_.insert(SenzaMaiuscole(rs.Fields("Cod").Testo())).second) continue;
      if (++fatti_ % kOgni == 0 && !avanzamento_->Avanza(fatti_)) return false;
      Conto(rs);
    }
    return !stampa_.Interrotta();
  }

  void Conto(const Rs& conto) {
    const std::string cod = conto.Fields("Cod").Testo();
    const std::string cfp = conto.Fields("CFP").Testo();
    stampa_.Campo(1, cod);
    stampa_.Campo(2, conto.Fields("Descrizione").Testo());
    stampa_.Campo(3, conto.Fields("PatrEcon").Testo());
    stampa_.Campo(4, Riepilogo(cfp));
    stampa_.Riga(kRigaConto, AlConto(cfp, cod));
  }

  Ambiente& ambiente_;
  Archivio& tessarc_;
  reports::Stampa stampa_;
  std::unique_ptr<Avanzamento> avanzamento_;
  std::set<std::string> stampati_;  ///< folded codes
  std::int64_t fatti_ = 0;
};

}  // namespace

void StampaPianoDeiConti(Ambiente& ambiente, reports::FabbricaUscite& uscite) {
  TabulatoPiano(ambiente, uscite).Esegui();
}

void StampaContiConRettifiche(Ambiente& ambiente, reports::FabbricaUscite& uscite) {
  reports::Stampa stampa(ambiente, uscite);
  if (reports::ApriStampa(stampa, ambiente,
                          {"conti con rettifiche", "CONTI CON RETTIFICHE DI BILANCIO", "",
                           kLarghezzaRettifiche}) == reports::ModoStampa::Fermata) {
    return;
  }
  const std::string rigo = "|" + reports::Ripeti("-", kLarghezzaRettifiche - 2) + "|";
  stampa.Intestazione([&] {
    Testata(stampa, ambiente);
    stampa.Riga(rigo);
    stampa.Riga(kTitoloRettifiche, {}, true);
    stampa.Riga(rigo);
    stampa.Riga(kColonneRettifiche);
    stampa.Riga(rigo);
  });
  const std::string riga = reports::PictureImporto(kRigaRettifica, ambiente.Euro());
  for (Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
           "SELECT * FROM CONTI WHERE ImportoSitAziendale<>0 ORDER BY COD");
       !rs.Eof(); rs.MoveNext()) {
    const std::string cod = rs.Fields("Cod").Testo();
    stampa.Campo(1, cod);
    stampa.Campo(2, rs.Fields("Descrizione").Testo());
    stampa.Campo(3, rs.Fields("ImportoSitAziendale").Importo());
    stampa.Riga(riga, AlConto(rs.Fields("CFP").Testo(), cod));
  }
  stampa.Riga(rigo);
  stampa.Fine();
}

}  // namespace fenalto::ledger
