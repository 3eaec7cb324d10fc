#include "assets/RegistroCespiti.h"

#include <map>

#include "assets/LineeScheda.h"
#include "assets/TitoloAnno.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::assets {
namespace {

constexpr std::int64_t kOgni = 200;  // assets between two signs of life
/// Where the figures begin on a line of the text form, and how long it is.
constexpr std::size_t kPrimaDelleCifre = 61;
constexpr std::size_t kLarghezzaTesto = 120;
constexpr const char* kCifre = "#######,### #######,### #######,### #######,### #######,###";

std::string OrdineSql(OrdineCespiti ordine) {
  switch (ordine) {
    case OrdineCespiti::DataInFunzione:
      return "Cespiti.Dal";
    case OrdineCespiti::Codice:
      return "Cespiti.CODICE, Cespiti.DESCRIZIONE";
    case OrdineCespiti::Descrizione:
      return "Cespiti.DESCRIZIONE";
    case OrdineCespiti::Numero:
      break;
  }
  return "Cespiti.NCESP";
}

std::string Condizione(const SceltaRegistro& scelta) {
  std::string condizione = scelta.categorie.Condizione("Cespiti.Cat");
  if (!condizione.empty()) condizione += " AND ";
  condizione += "Year(Cespiti.Dal) <= " + std::to_string(scelta.finoAllAnno);
  if (scelta.soloAnnoEntrInFunz != 0) {
    condizione += " AND Year(Cespiti.Dal) = " + std::to_string(scelta.soloAnnoEntrInFunz);
  }
  return condizione;
}

std::string StatoDi(const VoceRegistro& voce) {
  std::string stato;
  if (voce.completato) stato = "completato";
  if (voce.annoVendita != 0) {
    stato += (stato.empty() ? "" : ", ") + ("dismesso " + std::to_string(voce.annoVendita));
  }
  if (!voce.mancano.empty()) stato += (stato.empty() ? "" : ", ") + ("mancano " + voce.mancano);
  return stato;
}

Importo AnnoCespite::* const kFigure[] = {&AnnoCespite::costo, &AnnoCespite::fondoPrec,
                                          &AnnoCespite::quota, &AnnoCespite::accantonato,
                                          &AnnoCespite::residuo};

/// Lines of the graphic form and rows of the sheet; the text form has its own pictures.
reports::Tabella<VoceRegistro> TabellaRegistro() {
  using V = VoceRegistro;
  const auto figura = [](const char* titolo, const char* nome, const std::string& campo,
                         Importo AnnoCespite::* membro) {
    return reports::ColonnaDi<V>{
        {titolo, " ##.###.###,##", "R_" + campo, "R_TOT" + campo, {nome, Tipo::Importo}, true},
        [membro](const V& v) { return v.situazione.*membro; }};
  };
  return reports::Tabella<V>(
      {{{"N.", " $$$$$", "R_NCESP", "", {"N.", Tipo::Intero}},
        [](const V& v) { return v.cespite.nCesp; }},
       {{"DESCRIZIONE", " " + reports::Ripeti("§", 40), "R_DESCRIZIONE", "", {"Descrizione"}},
        [](const V& v) { return v.cespite.descrizione; }},
       {{"", " $$$$$       ", "R_USATO", "", {"Usato"}},
        [](const V& v) { return v.cespite.usato ? "usato" : "nuovo"; }},
       {{"", "", "", "", {"Codice"}, false, false}, [](const V& v) { return v.cespite.codice; }},
       {{"", "", "", "", {"Categoria"}, false, false}, [](const V& v) { return v.cespite.cat; }},
       {{"", "", "", "", {"In funzione dal", Tipo::Data}, false, false},
        [](const V& v) { return v.cespite.dal; }},
       figura("COSTO", "Costo", "COSTO", &AnnoCespite::costo),
       figura("FONDO PREC.", "Fondo prec.", "FONDOPREC", &AnnoCespite::fondoPrec),
       figura("QUOTA ANNO", "Quota anno", "QUOTA", &AnnoCespite::quota),
       figura("FONDO ATT.", "Fondo att.", "FONDO", &AnnoCespite::accantonato),
       figura("RESIDUO", "Residuo", "RESIDUO", &AnnoCespite::residuo),
       {{"", "", "", "", {"Stato"}, false, false}, StatoDi}});
}

/// A line of a card on a sheet.
struct LineaDelFoglio {
  const VoceRegistro* voce = nullptr;
  LineaScheda linea;
};

reports::Tabella<LineaDelFoglio> TabellaSchede() {
  using L = LineaDelFoglio;
  const auto figura = [](const char* nome, Importo AnnoCespite::* membro) {
    return reports::ColonnaDi<L>{
        {nome, " #######,###", "", "", {nome, Tipo::Importo}}, [membro](const L& l) {
          return l.linea.totali ? Valore((*l.linea.totali).*membro) : Valore();
        }};
  };
  return reports::Tabella<L>(
      {{{"", " $$$$$", "", "", {"N.", Tipo::Intero}},
        [](const L& l) { return l.voce->cespite.nCesp; }},
       {{"", " $", "", "", {"Descrizione"}},
        [](const L& l) { return l.voce->cespite.descrizione; }},
       {{"", " $", "", "", {"Anno", Tipo::Intero}}, [](const L& l) { return l.linea.anno; }},
       {{"", " $", "", "", {"Causale"}}, [](const L& l) { return l.linea.causale; }},
       {{"", " $", "", "", {"Estremi"}}, [](const L& l) { return l.linea.testo; }},
       {{"", " #######,###", "", "", {"Importo", Tipo::Importo}},
        [](const L& l) { return l.linea.importo ? Valore(*l.linea.importo) : Valore(); }},
       figura("Costo", &AnnoCespite::costo),
       figura("Fondo prec.", &AnnoCespite::fondoPrec),
       figura("Quota anno", &AnnoCespite::quota),
       figura("Accantonato", &AnnoCespite::accantonato),
       figura("Residuo", &AnnoCespite::residuo)});
}

/// Fields of the figures on the model, in their order.
const std::vector<std::string> kCampiFigure = {"R_COSTO", "R_FONDOPREC", "R_QUOTA", "R_FONDO",
                                               "R_RESIDUO"};

std::vector<Valore> Figure(const AnnoCespite& anno) {
  std::vector<Valore> valori;
  for (const auto membro : kFigure) valori.emplace_back(anno.*membro);
  return valori;
}

/// The walk over the assets, on paper or on a sheet.
class StampaRegistro {
 public:
  StampaRegistro(Ambiente& ambiente, reports::FabbricaUscite& uscite, const SceltaRegistro& scelta)
      : ambiente_(ambiente),
        scelta_(scelta),
        tabella_(TabellaRegistro()),
        schede_(TabellaSchede()),
        rapporto_(ambiente, uscite),
        rotture_(tabella_, Gruppi()),
        descrivi_(DescrizioniCausali(ambiente)) {}

  bool Stampa(std::int64_t quanti) {
    rapporto_.Tavola(tabella_, "R_SCRITTATOT", "Descrizione");
    reports::Cornice cornice;
    cornice.rapporto = scelta_.schede ? "schede cespiti" : "registro cespiti";
    cornice.titolo = "Situazione cespiti ammortizzabili";
    cornice.larghezza = kLarghezzaTesto;
    cornice.grafico = scelta_.stGrafico;
    cornice.xTar = scelta_.xTar;
    return rapporto_.Apri(cornice, [this] { Testata(); }) && Scorri(quanti);
  }

  reports::Foglio Foglio(std::int64_t quanti) {
    reports::Foglio foglio;
    scelta_.schede ? rapporto_.Tavola(schede_) : rapporto_.Tavola(tabella_, "", "Descrizione");
    rapporto_.ApriFoglio(foglio, {{Titolo().Testo() + Suffissi()}});
    if (!Scorri(quanti)) return {};
    return foglio;
  }

 private:
  [[nodiscard]] TitoloAnno Titolo() const {
    return {"SITUAZIONE CESPITI AMMORTIZZABILI", scelta_.finoAllAnno, scelta_.categorie};
  }

  [[nodiscard]] std::string Suffissi() const {
    std::string testo;
    if (scelta_.noAmmCompl) testo += " - senza cespiti con ammortamento completato - ";
    if (scelta_.noDismesso) testo += " - senza cespiti dismessi -";
    if (scelta_.soloAnnoEntrInFunz != 0) {
      testo += "- solo entrati in funzione nell'anno " + std::to_string(scelta_.soloAnnoEntrInFunz);
    }
    return testo;
  }

  std::vector<reports::Gruppo<VoceRegistro>> Gruppi() {
    return {{[](const VoceRegistro& a, const VoceRegistro& b) {
               return UgualeTesto(a.cespite.cat, b.cespite.cat);
             },
             [this](const VoceRegistro& prima) { ApriCategoria(prima.cespite.cat); },
             [this](const VoceRegistro& ultima, const reports::Somme& somme) {
               if (rapporto_.SuFoglio() && scelta_.schede) return;
               rapporto_.Rigo("-");
               Totale("totale categoria " + ultima.cespite.cat, somme);
               rapporto_.Stacco();
             }}};
  }

  void Testata() {
    rapporto_.TestataDitta();
    if (rapporto_.Grafico()) {
      rapporto_.Titolo("TITOLO", Titolo().Testo());
      rapporto_.Titolo("TITOLO2", Suffissi());
      return;
    }
    Titolo().Stampa(rapporto_);
    if (!Suffissi().empty()) rapporto_.RigaTesto(Suffissi());
    rapporto_.Rigo("=");
    rapporto_.RigaTesto(
        scelta_.schede
            ? "CAUSALE          ESTREMI ACQUISTI, % AMMORT., DISMISSIONI        COSTO  FONDO PREC. "
              "QUOTA ANNO  ACCANTONATO    RESIDUO  "
            : "                                                                  COSTO  FONDO "
              "PREC. QUOTA ANNO  FONDO ATT.     RESIDUO  ");
    rapporto_.Rigo("-");
  }

  void ApriCategoria(const std::string& cat) {
    const std::string descrizione =
        NzStr(ambiente_.Cerca("tessarc", "CategorieCespiti", {{"Cod", cat}}, "DescrCat"));
    rapporto_.Riserva(6);
    if (rapporto_.Grafico()) {
      rapporto_.Scritta("R_SCRITTATOT", "CATEGORIA " + cat + " " + descrizione, true);
      return;
    }
    rapporto_.Riga({" CATEGORIA $$$$$$$$ " + reports::Ripeti("$", 40), {}, true},
                   {cat, descrizione});
  }

  bool Scorri(std::int64_t quanti) {
    rapporto_.Avvia("Stampa cespiti", quanti, kOgni);
    const bool tutti =
        ScorriRegistro(ambiente_, scelta_,
                       [this](const VoceRegistro& voce, std::span<const MovimentoCespite> righe) {
                         if (!rapporto_.Passo()) return false;
                         rotture_.Riga(voce, tabella_.Celle(voce));
                         Voce(voce, righe);
                         return true;
                       });
    if (!tutti) return false;
    rotture_.Fine();
    if (!(rapporto_.SuFoglio() && scelta_.schede)) {
      rapporto_.Riserva(2);
      rapporto_.Filo("=");
      Totale("TOTALE GENERALE", rotture_.Generali());
    }
    return !rapporto_.Interrotta() && rapporto_.Fine();
  }

  void Totale(const std::string& scritta, const reports::Somme& somme) {
    if (rapporto_.Grafico() || rapporto_.SuFoglio()) return rapporto_.Totale(scritta, somme);
    std::vector<Valore> valori{scritta};
    for (std::size_t i = 0; i < somme.size(); ++i) {
      if (tabella_.Tutte()[i].sommata) valori.emplace_back(somme[i]);
    }
    rapporto_.Riga({reports::Ripeti("$", kPrimaDelleCifre - 1) + " " + kCifre, {}, true},
                   std::move(valori));
  }

  void Voce(const VoceRegistro& voce, std::span<const MovimentoCespite> righe) {
    if (rapporto_.SuFoglio()) {
      if (!scelta_.schede) return rapporto_.RigaTavola(tabella_.Celle(voce));
      const SchedaCespite scheda = CalcolaScheda(righe, scelta_.finoAllAnno);
      for (LineaScheda& linea : LineeDi(scheda, righe, descrivi_)) {
        rapporto_.RigaTavola(schede_.Celle({&voce, std::move(linea)}));
      }
      return;
    }
    rapporto_.Riserva(5);
    Intestazione(voce);
    if (scelta_.schede) {
      Scheda(righe);
    } else if (!rapporto_.Grafico()) {
      rapporto_.Riga({Spazi() + kCifre}, Figure(voce.situazione));
    }
    Piede(voce);
    rapporto_.Vuota();
  }

  static std::string Spazi() {
    std::string spazi(kPrimaDelleCifre, ' ');
    return spazi;
  }

  /// A text of the asset under its first line.
  void Dettaglio(const std::string& sagoma, const std::string& testo) {
    if (testo.empty()) return;
    if (rapporto_.Grafico()) return rapporto_.Riga({{}, {"R_DESCRIZIONE"}}, {testo});
    rapporto_.Riga({sagoma}, {testo});
  }

  void Intestazione(const VoceRegistro& voce) {
    const Cespite& c = voce.cespite;
    const Rinvio rinvio = AlNumero("Cespiti", c.nCesp);
    if (rapporto_.Grafico() && !scelta_.schede) {
      rapporto_.RigaTavola(tabella_.Celle(voce), rinvio);
    } else {
      rapporto_.Riga({" $$$$$ " + reports::Ripeti("§", 40) + " $$$$$       ",
                      {"R_NCESP", "R_DESCRIZIONE", "R_USATO"},
                      scelta_.schede},
                     {c.nCesp, c.descrizione, c.usato ? "usato" : "nuovo"}, rinvio);
    }
    std::string codici;
    for (const std::string& testo : {c.codice, c.sn, c.ubicaz}) {
      if (!testo.empty()) codici += (codici.empty() ? "" : "/") + testo;
    }
    if (rapporto_.Grafico() && !codici.empty()) codici = "cod./s.n./ubicazione " + codici;
    Dettaglio(" Cod./S/N/Ub. " + reports::Ripeti("$", 64), codici);
    Legami(c);
    std::string stato = "In funzione dal " + c.dal.Testo() + " ";
    if (voce.ultimoAnno != 0) stato += " Ultimo anno " + std::to_string(voce.ultimoAnno) + ", ";
    if (voce.completato) stato += " Ammortamento completato ";
    if (voce.annoVendita != 0) stato += " Cespite dismesso ";
    Dettaglio(" " + reports::Ripeti("$", 110), stato);
  }

  /// The asset that it refers to, and those that refer to it.
  void Legami(const Cespite& c) {
    if (!legamiLetti_) LeggiLegami();
    const auto testo = [](const CespiteLegato& altro) {
      return std::to_string(altro.nCesp) + " " + altro.codice + " " + altro.descrizione;
    };
    if (c.cespCorr != 0) {
      const auto riferimento = riferimenti_.find(c.cespCorr);
      if (riferimento != riferimenti_.end()) {
        Dettaglio(
            " Cesp.di rif." + reports::Ripeti("$", 46) + " ",
            (rapporto_.Grafico() ? "cespite di riferimento " : "") + testo(riferimento->second));
      }
    }
    const auto [da, a] = correlati_.equal_range(c.nCesp);
    for (auto altro = da; altro != a; ++altro) {
      Dettaglio(" cesp.correlato " + reports::Ripeti("$", 43) + " ",
                (rapporto_.Grafico() ? "cespite correlato " : "") + testo(altro->second));
    }
  }

  /// Those that have to do with each other are few: they are read once.
  void LeggiLegami() {
    legamiLetti_ = true;
    Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
    Rs rs = tessarc.Recordset(
        "SELECT NCesp, Codice, Descrizione, CespCorr FROM Cespiti WHERE CespCorr > 0");
    for (; !rs.Eof(); rs.MoveNext()) {
      const CespiteLegato legato{rs.Fields(0).Intero(), NzStr(rs.Fields(1)), NzStr(rs.Fields(2))};
      const std::int64_t riferimento = rs.Fields(3).Intero();
      correlati_.emplace(riferimento, legato);
      if (riferimenti_.contains(riferimento)) continue;
      const Rs suo = tessarc.Recordset("SELECT Codice, Descrizione FROM Cespiti WHERE " +
                                       sql::Criterio("NCesp", "=", riferimento));
      if (suo.Eof()) continue;
      riferimenti_[riferimento] = {riferimento, NzStr(suo.Fields(0)), NzStr(suo.Fields(1))};
    }
  }

  void Scheda(std::span<const MovimentoCespite> righe) {
    const SchedaCespite scheda = CalcolaScheda(righe, scelta_.finoAllAnno);
    const std::string trenta = reports::Ripeti("$", 30);
    const std::string rientro(17, ' ');
    for (const LineaScheda& linea : LineeDi(scheda, righe, descrivi_)) {
      switch (linea.genere) {
        case GenereLinea::Riga:
          rapporto_.Riga({reports::Ripeti("$", 16) + " " + trenta + " #######,###",
                          {"R_NCESP", "R_DESCRIZIONE", "R_COSTO"}},
                         {RigaCausale(linea), RigaEstremi(linea), *linea.importo});
          break;
        case GenereLinea::Nota:
          rapporto_.Riga({rientro + trenta, {"R_DESCRIZIONE"}}, {linea.testo});
          break;
        case GenereLinea::Ulteriore:
        case GenereLinea::Plusvalenza:
          rapporto_.Riga({rientro + trenta + " #######,###", {"R_DESCRIZIONE", "R_COSTO"}},
                         {linea.testo, *linea.importo});
          break;
        case GenereLinea::Totali:
          Totali(linea);
          break;
        case GenereLinea::Errore:
          rapporto_.Riga({" " + reports::Ripeti("$", 110), {"R_DESCRIZIONE"}, true}, {linea.testo});
          break;
      }
    }
  }

  /// The model has a narrow first column: there the causal stands before the reference.
  [[nodiscard]] std::string RigaCausale(const LineaScheda& linea) const {
    return rapporto_.Grafico() ? std::to_string(linea.anno) : linea.causale;
  }
  [[nodiscard]] std::string RigaEstremi(const LineaScheda& linea) const {
    return rapporto_.Grafico() ? linea.causale + " " + linea.testo : linea.testo;
  }

  void Totali(const LineaScheda& linea) {
    if (rapporto_.Grafico()) {
      std::vector<Valore> valori = Figure(*linea.totali);
      valori.insert(valori.begin(), linea.causale);
      std::vector<std::string> campi = kCampiFigure;
      campi.insert(campi.begin(), "R_DESCRIZIONE");
      rapporto_.Riga({{}, campi}, std::move(valori));
      return;
    }
    rapporto_.Riga({"------ Anno $$$$ ------------------------------------------ ----------- "
                    "----------- ----------- ----------- -----------"},
                   {std::to_string(linea.anno)});
    rapporto_.Riga({std::string(60, ' ') + kCifre + "        *"}, Figure(*linea.totali));
  }

  void Piede(const VoceRegistro& voce) {
    if (voce.annoVendita != 0) {
      if (rapporto_.Grafico()) {
        const bool utile = voce.plusvalenza >= Importo();
        Dettaglio("", "Dismesso nell'anno " + std::to_string(voce.annoVendita) + " per " +
                          ScriviImporto(voce.vendita, 2) +
                          (utile ? ", plusvalenza " : ", minusvalenza ") +
                          ScriviImporto(voce.plusvalenza.Assoluto(), 2));
      } else {
        rapporto_.Riga({"          Dismesso nell'anno ####, #######,### minus/plusval #######,###"},
                       {voce.annoVendita, voce.vendita, voce.plusvalenza});
      }
    }
    if (!voce.mancano.empty()) {
      Dettaglio(" " + reports::Ripeti("$", 118),
                "Attenzione: mancano registrazioni ammortamenti anno/i " + voce.mancano +
                    " oppure manca la dismissione");
    }
  }

  struct CespiteLegato {
    std::int64_t nCesp = 0;
    std::string codice;
    std::string descrizione;
  };

  Ambiente& ambiente_;
  const SceltaRegistro& scelta_;
  reports::Tabella<VoceRegistro> tabella_;
  reports::Tabella<LineaDelFoglio> schede_;
  reports::Rapporto rapporto_;
  reports::Rotture<VoceRegistro> rotture_;
  std::function<std::string(const std::string&)> descrivi_;
  bool legamiLetti_ = false;
  std::map<std::int64_t, CespiteLegato> riferimenti_;     ///< by their own number
  std::multimap<std::int64_t, CespiteLegato> correlati_;  ///< by the number they refer to
};

}  // namespace

VoceRegistro VoceAl(const Cespite& cespite, std::span<const MovimentoCespite> righe, int anno) {
  const SchedaCespite scheda = CalcolaScheda(righe, anno);
  VoceRegistro voce;
  voce.cespite = cespite;
  voce.situazione = SituazioneAl(scheda, anno);
  voce.ultimoAnno = scheda.UltimoAnno();
  voce.completato = scheda.Completato();
  voce.annoVendita = scheda.annoVendita;
  voce.mancano = ElencoAnni(AnniScoperti(scheda, anno));
  for (const AnnoCespite& uno : scheda.anni) {
    if (!uno.vendita) continue;
    voce.vendita = *uno.vendita;
    voce.plusvalenza = *uno.Plusvalenza();
  }
  return voce;
}

bool ScorriRegistro(
    Ambiente& ambiente, const SceltaRegistro& scelta,
    const std::function<bool(const VoceRegistro&, std::span<const MovimentoCespite>)>& voce) {
  return ScorriCespiti(ambiente, Condizione(scelta), OrdineSql(scelta.ordine),
                       [&](const Cespite& cespite, std::span<const MovimentoCespite> righe) {
                         const VoceRegistro letta = VoceAl(cespite, righe, scelta.finoAllAnno);
                         if (scelta.noAmmCompl && letta.completato) return true;
                         if (scelta.noDismesso && letta.annoVendita != 0) return true;
                         return voce(letta, righe);
                       });
}

std::int64_t RegistroCespiti::Pronti(const SceltaRegistro& scelta) {
  std::optional<Rifiuto> difetto;
  if (scelta.finoAllAnno <= 0) difetto = {"impostare anno", "FinoAllAnno"};
  if (Rifiuta(ambiente_, difetto)) return 0;
  return reports::Trovati(
      ambiente_,
      [&] {
        return ambiente_.ArchivioDi("tessarc")
            .Singolo("SELECT Count(*) FROM Cespiti WHERE " + Condizione(scelta))
            .Intero();
      },
      [&] {
        return "nessun cespite da stampare fino all'anno " + std::to_string(scelta.finoAllAnno);
      });
}

bool RegistroCespiti::Stampa(const SceltaRegistro& scelta) {
  const std::int64_t quanti = Pronti(scelta);
  return quanti != 0 && StampaRegistro(ambiente_, uscite_, scelta).Stampa(quanti);
}

reports::Foglio RegistroCespiti::Foglio(const SceltaRegistro& scelta) {
  const std::int64_t quanti = Pronti(scelta);
  if (quanti == 0) return {};
  return StampaRegistro(ambiente_, uscite_, scelta).Foglio(quanti);
}

}  // namespace fenalto::assets
