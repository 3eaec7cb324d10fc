// The trial balance, printed or as a sheet.
#include "ledger/statements/BilancioInterno.h"

namespace fenalto::ledger {

namespace {

/// Before the words of a total that holds accounts left out of the print.
constexpr const char* kParziale = "(*) ";
constexpr const char* kNotaParziale = "(*) con conti esclusi dalla stampa";

struct RigaVerifica {
  std::string cod;
  std::string descrizione;
  std::string lettera;
  /// Null of the line that opens a master.
  std::optional<Saldo> saldo;
};

reports::Tabella<RigaVerifica> TabellaVerifica() {
  using R = RigaVerifica;
  const auto importo = [](const char* titolo, const std::string& campo, auto valore,
                          const char* chiude = "") {
    return reports::ColonnaDi<R>{{titolo,
                                  "|" + reports::Ripeti("ç", 16) + chiude,
                                  "R_" + campo,
                                  "R_TOT" + campo,
                                  {titolo, Tipo::Importo},
                                  true},
                                 [valore](const R& r) {
                                   return r.saldo ? Valore(std::invoke(valore, *r.saldo))
                                                  : Valore();
                                 }};
  };
  return reports::Tabella<R>(
      {{{" codice", "| $$$$$$$$", "R_conto", "R_mastro", {"Codice"}}, &R::cod},
       {{"descrizione mastro/sottoconto",
         " " + reports::Ripeti("$", 35),
         "R_descrizione",
         "R_descrmastro",
         {"Descrizione"}},
        &R::descrizione},
       {{"", "", "", "", {"p/e"}, false, false}, &R::lettera},
       importo("Saldo Iniziale", "SALDOINIZIALE", &Saldo::saldoIniziale),
       importo("Dare", "DARE", &Saldo::totaleDare),
       importo("Avere", "AVERE", &Saldo::totaleAvere),
       importo("Saldo", "SALDO", &Saldo::Finale, "|")});
}

class RapportoVerifica {
 public:
  RapportoVerifica(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                   const SceltaBilancio& scelta)
      : ambiente_(ambiente),
        scelta_(scelta),
        titolo_(scelta.soloMastri ? "BILANCIO DI VERIFICA SOLO MASTRI" : "BILANCIO DI VERIFICA"),
        tabella_(TabellaVerifica()),
        rapporto_(ambiente, uscite) {
    rapporto_.Tavola(tabella_);
  }

  bool Stampa() {
    const auto testata = [this] {
      TestataBilancio(rapporto_, scelta_, titolo_, ScrittaTutto(scelta_));
      rapporto_.Titoli();
    };
    return rapporto_.Apri(CorniceBilancio(scelta_, "bilancio di verifica", titolo_, "TiBV"),
                          testata) &&
           Scorri();
  }

  reports::Foglio Foglio() {
    reports::Foglio foglio;
    rapporto_.ApriFoglio(foglio, {});
    foglio.premessa = PremessaBilancio(ambiente_, rapporto_, scelta_, titolo_);
    foglio.premessa.push_back({ScrittaPeriodo(scelta_.daDt, scelta_.aaDt)});
    if (!Scorri()) return {};
    return foglio;
  }

 private:
  bool Scorri() {
    VisitaConti visita(ambiente_, RichiestaDi(scelta_, "", false));
    if (!visita.Visita("Bilancio di verifica", [this](const auto& m) { Mastro(m); })) return false;
    rapporto_.Riserva(parziali_ ? 4 : 3);
    rapporto_.Filo("=");
    Totale({"", (parziali_ ? kParziale : "") + std::string("TOTALI"), "", totali_});
    rapporto_.Rigo("=");
    if (parziali_) Totale({"", kNotaParziale, "", {}});
    return rapporto_.Fine();
  }

  void Mastro(const MastroVisitato& mastro) {
    const std::string lettera = LetteraDi(mastro);
    Saldo totale;
    bool stampato = false;
    bool parziale = false;
    for (const ContoVisitato& conto : mastro.conti) {
      const Saldo& saldo = conto.saldi[0];
      totale += saldo;
      const bool suo = ContoStampato(scelta_, conto);
      stampato = stampato || suo;
      parziale = parziale || (!suo && !(saldo.totaleDare.Zero() && saldo.totaleAvere.Zero() &&
                                        saldo.saldoIniziale.Zero()));
    }
    totali_ += totale;
    // Where masters alone are asked for, only one without a line is missing.
    if (scelta_.soloMastri && stampato) parziale = false;
    parziali_ = parziali_ || parziale;
    if (!stampato) return;
    if (!scelta_.soloMastri) {
      bool testa = !rapporto_.SuFoglio();
      ScorriVoci(scelta_, mastro, rapporto_, [&](const VoceBilancio& voce) {
        // The master's line never stands alone, nor the last account without its total.
        if (!voce.parte) rapporto_.Riserva(testa ? 3 : 2);
        if (testa) Totale({mastro.cod, mastro.descrizione, "", {}});
        testa = false;
        rapporto_.RigaTavola(tabella_.Celle({voce.cod, voce.descrizione, lettera, voce.saldi[0]}),
                             voce.Rinvio());
      });
      if (rapporto_.Grafico()) rapporto_.Filo("");
    }
    Totale(
        {"tot. " + mastro.cod, (parziale ? kParziale : "") + mastro.descrizione, lettera, totale});
    if (!scelta_.soloMastri) rapporto_.Stacco("-");
  }

  void Totale(const RigaVerifica& riga) { rapporto_.RigaTotale(tabella_.Celle(riga)); }

  Ambiente& ambiente_;
  const SceltaBilancio& scelta_;
  std::string titolo_;
  reports::Tabella<RigaVerifica> tabella_;
  reports::Rapporto rapporto_;
  Saldo totali_;
  bool parziali_ = false;  ///< some total holds accounts that aren't printed
};

}  // namespace

bool BilancioVerifica::StampaVerifica(const SceltaBilancio& scelta) {
  return Pronto(scelta, false) && RapportoVerifica(ambiente_, uscite_, scelta).Stampa();
}

reports::Foglio BilancioVerifica::FoglioVerifica(const SceltaBilancio& scelta) {
  return RapportoVerifica(ambiente_, uscite_, scelta).Foglio();
}

}  // namespace fenalto::ledger
