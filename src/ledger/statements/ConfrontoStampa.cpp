// The comparison of costs and revenues between two periods, printed or as a sheet.
#include "ledger/statements/BilancioInterno.h"

namespace fenalto::ledger {

namespace {

constexpr std::size_t kLarghezzaConfronto = 130;
constexpr const char* kTitolo = "CONFRONTO COSTI E RICAVI";

/// Costs and revenues of the two periods.
struct CostiRicavi {
  std::array<Importo, 2> costi;
  std::array<Importo, 2> ricavi;
  /// A balance above zero is a cost, one below zero a revenue.
  void Aggiungi(const Saldi& saldi) {
    for (std::size_t p = 0; p < saldi.size(); ++p) {
      const Importo saldo = saldi[p].Finale();
      if (saldo.Negativo()) {
        ricavi[p] -= saldo;
      } else {
        costi[p] += saldo;
      }
    }
  }
  [[nodiscard]] Importo Saldo(std::size_t p) const { return costi[p] - ricavi[p]; }
};

/// A line; Null leaves a cell empty.
struct RigaConfronto {
  std::string cod;
  std::string descrizione;
  std::string lettera;
  std::array<Valore, 4> importi;  ///< costs A, revenues A, costs B, revenues B
  Valore differenza;
  Valore percento;

  RigaConfronto(std::string c, std::string d, std::string l)
      : cod(std::move(c)), descrizione(std::move(d)), lettera(std::move(l)) {}
  RigaConfronto(std::string c, std::string d, std::string l, const CostiRicavi& cifre)
      : RigaConfronto(std::move(c), std::move(d), std::move(l)) {
    importi = {cifre.costi[0], cifre.ricavi[0], cifre.costi[1], cifre.ricavi[1]};
    Scosta(cifre.Saldo(0), cifre.Saldo(1));
  }
  void Scosta(Importo a, Importo b) {
    const Scostamento scosta = ledger::Scosta(a, b);
    differenza = scosta.differenza;
    percento = scosta.percento;
  }
};

reports::Tabella<RigaConfronto> TabellaConfronto() {
  using R = RigaConfronto;
  const auto importo = [](const char* titolo, const std::string& campo, std::size_t i) {
    return reports::ColonnaDi<R>{{titolo,
                                  " " + reports::Ripeti("ç", 14),
                                  "R_" + campo,
                                  "R_TOT" + campo,
                                  {titolo, Tipo::Importo}},
                                 [i](const R& r) { return r.importi.at(i); }};
  };
  return reports::Tabella<R>(
      {{{" codice", " $$$$$$$$$$", "R_conto", "R_mastro", {"Codice"}}, &R::cod},
       {{"descrizione mastro/sottoconto",
         " " + reports::Ripeti("$", 35),
         "R_descrizione",
         "R_descrmastro",
         {"Descrizione"}},
        &R::descrizione},
       {{"", "", "", "", {"p/e"}, false, false}, &R::lettera},
       importo("costi A", "COSTIA", 0),
       importo("ricavi A", "RICAVIA", 1),
       importo("costi B", "COSTIB", 2),
       importo("ricavi B", "RICAVIB", 3),
       {{"differenza",
         " " + reports::Ripeti("ç", 14),
         "R_DIFF",
         "R_TOTDIFF",
         {"differenza", Tipo::Importo}},
        &R::differenza},
       {{"% ", " #####,#", "R_PERC", "R_TOTPERC", {"%", Tipo::Importo, 1}}, &R::percento}});
}

class RapportoConfronto {
 public:
  RapportoConfronto(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                    const SceltaBilancio& scelta)
      : ambiente_(ambiente),
        scelta_(scelta),
        tabella_(TabellaConfronto()),
        rapporto_(ambiente, uscite) {
    rapporto_.Tavola(tabella_);
  }

  bool Stampa() {
    reports::Cornice cornice =
        CorniceBilancio(scelta_, "confronto costi e ricavi", "Confronto costi e ricavi", "TiConfr");
    cornice.larghezza = kLarghezzaConfronto;
    if (!rapporto_.Apri(cornice, [this] { Testata(); }) || !Scorri()) return false;
    Chiusura();
    return rapporto_.Fine();
  }

  reports::Foglio Foglio() {
    reports::Foglio foglio;
    rapporto_.ApriFoglio(foglio, {});
    foglio.premessa = PremessaBilancio(ambiente_, rapporto_, scelta_, kTitolo);
    const auto anno = [this](int a) { return scelta_.noAnno ? Valore("tutti") : Valore(a); };
    foglio.premessa.push_back(
        {"periodo A anno ", anno(scelta_.anno), ScrittaPeriodo(scelta_.daDt, scelta_.aaDt)});
    foglio.premessa.push_back({"periodo B anno ", anno(scelta_.annoPrec),
                               ScrittaPeriodo(scelta_.daDtAP, scelta_.aaDtAP)});
    if (!Scorri()) return {};
    Totale({"", "TOTALI", "", totali_});
    return foglio;
  }

 private:
  bool Scorri() {
    VisitaConti visita(ambiente_, RichiestaDi(scelta_, "E", true));
    return visita.Visita("Confronto costi e ricavi", [this](const auto& m) { Mastro(m); });
  }

  [[nodiscard]] std::string Periodo(bool a) const {
    const int anno = a ? scelta_.anno : scelta_.annoPrec;
    return (a ? "Periodo A  dal " : "Periodo B  dal ") +
           (a ? scelta_.daDt : scelta_.daDtAP).Testo() + " al " +
           (a ? scelta_.aaDt : scelta_.aaDtAP).Testo() +
           (scelta_.noAnno ? "" : "  anno " + std::to_string(anno));
  }

  void Testata() {
    const std::string scelte = ScrittaScelte(scelta_);
    TestataBilancio(rapporto_, scelta_, std::string(" ") + kTitolo + " ",
                    rapporto_.Grafico() ? "" : scelte);
    if (rapporto_.Grafico()) {
      rapporto_.Titolo("SCELTE", scelte);
      rapporto_.Titolo("titolo1", Periodo(true));
      return rapporto_.Titolo("titolo2", Periodo(false));
    }
    rapporto_.Rigo("=");
    rapporto_.Carta().Riga(" " + Periodo(true));
    rapporto_.Carta().Riga(" " + Periodo(false));
    rapporto_.Titoli("-");
  }

  void Mastro(const MastroVisitato& mastro) {
    const std::string lettera = LetteraDi(mastro);
    CostiRicavi cifre;
    bool stampato = false;
    for (const ContoVisitato& conto : mastro.conti) {
      cifre.Aggiungi(conto.saldi);
      stampato = stampato || ContoStampato(scelta_, conto);
    }
    for (std::size_t p = 0; p < 2; ++p) {
      totali_.costi[p] += cifre.costi[p];
      totali_.ricavi[p] += cifre.ricavi[p];
    }
    if (!stampato) return;
    // On paper a master's figures stand before its accounts, on a sheet after them.
    const bool foglio = rapporto_.SuFoglio();
    rapporto_.Riserva(scelta_.soloMastri ? 1 : 2);
    if (!foglio) Totale({mastro.cod, mastro.descrizione, lettera, cifre});
    if (!scelta_.soloMastri) {
      ScorriVoci(scelta_, mastro, rapporto_, [&](const VoceBilancio& v) { Voce(v, lettera); });
      rapporto_.Stacco();
    }
    if (foglio) Totale({"tot. " + mastro.cod, mastro.descrizione, lettera, cifre});
  }

  /// On paper an account has one cell a period.
  void Voce(const VoceBilancio& voce, const std::string& lettera) {
    CostiRicavi cifre;
    cifre.Aggiungi(voce.saldi);
    RigaConfronto riga(voce.cod, voce.descrizione, lettera, cifre);
    for (Valore& importo : riga.importi) {
      if (!rapporto_.SuFoglio() && importo.Importo().Zero()) importo = {};
    }
    rapporto_.RigaTavola(tabella_.Celle(riga), voce.Rinvio());
  }

  void Totale(const RigaConfronto& riga) { rapporto_.RigaTotale(tabella_.Celle(riga)); }

  void Chiusura() {
    rapporto_.Riserva(rapporto_.Grafico() ? 4 : 6);
    rapporto_.Filo("=");
    const auto lato = [&](const char* testo, bool costi) {
      const auto& c = costi ? totali_.costi : totali_.ricavi;
      RigaConfronto riga("", testo, "");
      riga.importi[costi ? 0 : 1] = c[0];
      riga.importi[costi ? 2 : 3] = c[1];
      riga.Scosta(c[0], c[1]);
      Totale(riga);
    };
    lato("TOTALE COSTI", true);
    lato("TOTALE RICAVI", false);
    // A profit stands under the revenues, a loss under the costs. From one to the other no
    // percentage says anything.
    RigaConfronto riga("", "UTILE (RICAVI) / PERDITA (COSTI)", "");
    const std::array<Importo, 2> utile = {-totali_.Saldo(0), -totali_.Saldo(1)};
    for (std::size_t p = 0; p < 2; ++p) {
      if (!utile[p].Zero())
        riga.importi[2 * p + (utile[p].Negativo() ? 0 : 1)] = utile[p].Assoluto();
    }
    riga.Scosta(utile[0], utile[1]);
    // The result of A less that of B: below zero for a profit that shrank as for a loss that grew.
    riga.differenza = utile[0] - utile[1];
    if (utile[0].Negativo() != utile[1].Negativo()) {
      riga.percento = {};
    } else if (utile[1].Negativo() && !riga.percento.Nullo()) {
      riga.percento = -riga.percento.Importo();
    }
    Totale(riga);
    rapporto_.Rigo("=");
  }

  Ambiente& ambiente_;
  const SceltaBilancio& scelta_;
  reports::Tabella<RigaConfronto> tabella_;
  reports::Rapporto rapporto_;
  CostiRicavi totali_;
};

}  // namespace

bool BilancioVerifica::StampaConfronto(const SceltaBilancio& scelta) {
  return Pronto(scelta, true) && RapportoConfronto(ambiente_, uscite_, scelta).Stampa();
}

reports::Foglio BilancioVerifica::FoglioConfronto(const SceltaBilancio& scelta) {
  return RapportoConfronto(ambiente_, uscite_, scelta).Foglio();
}

}  // namespace fenalto::ledger
