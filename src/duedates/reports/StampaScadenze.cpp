#include "duedates/reports/StampaScadenze.h"

#include <map>

#include "core/reports/Rapporto.h"
#include "core/values/Testo.h"
#include "duedates/reports/MeseScadenze.h"

namespace fenalto::duedates {
namespace {

/// Due dates between two signs of life.
constexpr std::int64_t kOgniStampate = 200;

std::string TitoloDi(const SceltaStampaScadenze& scelta) {
  const bool clienti = UgualeTesto(scelta.scadenze.cfp, "C");
  if (scelta.ordine == OrdineScadenze::PerData) {
    return std::string("SCADENZE PER DATA - ") + (clienti ? "CLIENTI" : "FORNITORI");
  }
  return std::string("SCADENZE PER ") + (clienti ? "CLIENTE" : "FORNITORE");
}

/// By party the name stands over its due dates; the sheet has it in each row.
reports::Tabella<ScadenzaStampata> TabellaScadenze(bool perConto) {
  using S = ScadenzaStampata;
  const std::string importo = " ###.###.###,##";
  const std::string descrizione = " " + reports::Ripeti("$", perConto ? 37 : 34);
  const bool diParte = !perConto;
  return reports::Tabella<S>(
      {{{"scadenza", "$$$$$$$$$$", "R_DTSCAD", "", {"Scadenza", Tipo::Data}}, &S::dt},
       {{"codice", " $$$$$$$$", "R_CONTO", "", {"Codice"}, false, diParte}, &S::conto},
       {{"cliente/fornitore",
         " " + reports::Ripeti("$", 34),
         "R_RAGSOC",
         "",
         {"Cliente/fornitore"},
         false,
         diParte},
        &S::ragsoc},
       {{"fattura", " $$$$$$$$", "R_NFAT", "", {"Fattura"}, false, true, true}, &S::NumeroFattura},
       {{"del", " $$$$$$$$$$", "R_DTFAT", "", {"Del", Tipo::Data}}, &S::dtFat},
       {{"descrizione", descrizione, "R_DESCRIZIONE", "", {"Descrizione"}}, &S::DescrizioneSegnata},
       {{"tp", " $$", "R_TIPO", "", {"Tipo"}}, &S::tipo},
       {{"stato", " $$$$$$$$$$", "R_STATO", "", {"Stato"}}, &S::StatoInParola},
       {{"importo", importo, "R_IMPORTO", "R_TOTIMPORTO", {"Importo", Tipo::Importo}, true},
        &S::importo},
       {{"pagato", importo, "R_PAGATO", "R_TOTPAGATO", {"Pagato", Tipo::Importo}, true},
        &S::pagato},
       {{"residuo", importo, "R_RESIDUO", "R_TOTRESIDUO", {"Residuo", Tipo::Importo}, true},
        &S::Residuo}});
}

/// The walk over the due dates, with their breaks and totals, on paper or on a sheet.
class RapportoScadenze {
 public:
  RapportoScadenze(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                   const SceltaStampaScadenze& scelta)
      : ambiente_(ambiente),
        scelta_(scelta),
        perConto_(scelta.ordine == OrdineScadenze::PerConto),
        tabella_(TabellaScadenze(perConto_)),
        rapporto_(ambiente, uscite),
        rotture_(tabella_, Gruppi()) {
    rapporto_.Tavola(tabella_, "R_SCRITTATOT", "Cliente/fornitore");
  }

  bool Stampa(std::int64_t quante) {
    reports::Cornice cornice;
    cornice.rapporto = perConto_ ? "scadenze per cliente/fornitore" : "scadenze per data";
    cornice.titolo = TitoloDi(scelta_);
    cornice.modello = perConto_ ? "TiSPC" : "TiSPD";
    cornice.grafico = scelta_.stGrafico;
    cornice.xTar = scelta_.xTar;
    return rapporto_.Apri(cornice, [this] { Testata(); }) && Scorri(quante);
  }

  reports::Foglio Foglio(std::int64_t quante) {
    reports::Foglio foglio;
    rapporto_.ApriFoglio(foglio, {{TitoloDi(scelta_)}, {ScrittaScelta(scelta_.scadenze)}});
    if (!Scorri(quante)) return {};
    return foglio;
  }

 private:
  using Livello = reports::Gruppo<ScadenzaStampata>;

  std::vector<Livello> Gruppi() {
    std::vector<Livello> gruppi;
    if (perConto_) {
      gruppi.push_back({[](const auto& a, const auto& b) { return UgualeTesto(a.conto, b.conto); },
                        [this](const ScadenzaStampata& s) { ApriParte(s); },
                        [this](const ScadenzaStampata& /*ultima*/, const reports::Somme& somme) {
                          inParte_ = false;
                          rapporto_.Totale("totale " + parte_.conto + " " + parte_.ragsoc, somme);
                          rapporto_.Stacco();
                        }});
    }
    if (scelta_.totaliMese) {
      gruppi.push_back({[](const auto& a, const auto& b) { return MeseDi(a.dt) == MeseDi(b.dt); },
                        {},
                        [this](const ScadenzaStampata& s, const reports::Somme& somme) {
                          rapporto_.Totale("totale " + NomeMese(MeseDi(s.dt)), somme);
                          if (!perConto_) rapporto_.Stacco();
                        }});
    }
    return gruppi;
  }

  bool Scorri(std::int64_t quante) {
    rapporto_.Avvia("Stampa scadenze", quante, kOgniStampate);
    const bool tutte = ScorriScadenze(ambiente_, scelta_.scadenze, scelta_.ordine,
                                      [this](const ScadenzaStampata& s) {
                                        if (!rapporto_.Passo()) return false;
                                        Riga(s);
                                        return true;
                                      });
    if (!tutte) return false;
    if (!rotture_.Vuota()) Chiusura();
    return !rapporto_.Interrotta() && rapporto_.Fine();
  }

  void Testata() {
    rapporto_.TestataDitta();
    if (rapporto_.Grafico()) {
      rapporto_.Titolo("TITOLO", TitoloDi(scelta_));
      rapporto_.Titolo("TITOLO2", ScrittaScelta(scelta_.scadenze));
    }
    rapporto_.RigaTesto(TitoloDi(scelta_) + "   " + ScrittaScelta(scelta_.scadenze), true);
    rapporto_.Titoli();
    // A party that goes on is named again.
    if (inParte_) Nome("  (segue)");
  }

  void ApriParte(const ScadenzaStampata& prima) {
    inParte_ = false;
    parte_ = prima;
    rapporto_.Riserva(rapporto_.Grafico() ? 4 : 5);
    Nome("");
    inParte_ = true;
  }

  void Nome(const char* seguito) {
    rapporto_.Scritta("R_PARTE", parte_.conto + "  " + parte_.ragsoc + seguito, true,
                      AlConto(parte_.cfp, parte_.conto));
  }

  void Riga(const ScadenzaStampata& s) {
    const std::vector<Valore> celle = tabella_.Celle(s);
    rotture_.Riga(s, celle);
    if (perConto_) {
      tabella_.Somma(mesi_.try_emplace(MeseDi(s.dt), celle.size()).first->second, celle);
    }
    // A page never begins with a total alone.
    rapporto_.Riserva(2);
    rapporto_.RigaTavola(celle, s.RinvioARegistrazione());
  }

  /// By party the months come back at each one: they are told together at the end.
  void Chiusura() {
    rotture_.Fine();
    if (!mesi_.empty()) {
      rapporto_.Riserva(4);
      rapporto_.Scritta("R_PARTE", "Riepilogo per mese", true);
    }
    for (const auto& [mese, somme] : mesi_) {
      const char* prima = mese == MeseDi(Data()) ? "" : "in scadenza a ";
      rapporto_.Totale(prima + NomeMese(mese), somme, false);
    }
    rapporto_.Riserva(2);
    rapporto_.Filo("=");
    rapporto_.Totale("TOTALE GENERALE", rotture_.Generali());
  }

  Ambiente& ambiente_;
  const SceltaStampaScadenze& scelta_;
  bool perConto_;
  reports::Tabella<ScadenzaStampata> tabella_;
  reports::Rapporto rapporto_;
  reports::Rotture<ScadenzaStampata> rotture_;
  std::map<MeseScadenze, reports::Somme> mesi_;
  ScadenzaStampata parte_;
  bool inParte_ = false;  ///< among the rows of a party
};

}  // namespace

std::int64_t StampaScadenze::Pronte(const SceltaStampaScadenze& scelta) {
  const SceltaScadenze& scadenze = scelta.scadenze;
  if (Rifiuta(ambiente_, DifettoScelta(scadenze))) return 0;
  return reports::Trovati(
      ambiente_, [&] { return ContaScadenze(ambiente_, scadenze); },
      [&] {
        return "nessuna scadenza da stampare: " + ScrittaScelta(scadenze) + " di " +
               NomeClasse(scadenze);
      });
}

bool StampaScadenze::Stampa(const SceltaStampaScadenze& scelta) {
  const std::int64_t quante = Pronte(scelta);
  return quante != 0 && RapportoScadenze(ambiente_, uscite_, scelta).Stampa(quante);
}

reports::Foglio StampaScadenze::FoglioScadenze(const SceltaStampaScadenze& scelta) {
  const std::int64_t quante = Pronte(scelta);
  if (quante == 0) return {};
  return RapportoScadenze(ambiente_, uscite_, scelta).Foglio(quante);
}

}  // namespace fenalto::duedates
