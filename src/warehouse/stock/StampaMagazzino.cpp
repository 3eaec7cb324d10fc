#include "warehouse/stock/StampaMagazzino.h"

#include "core/reports/Rapporto.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "warehouse/stock/ColonneMagazzino.h"

namespace fenalto::warehouse {
namespace {

constexpr std::int64_t kOgni = 200;  // products between two signs of life

Rinvio AlProdotto(const std::string& codice) {
  return {.funzione = "CodiciRiga", .codice = codice};
}

/// The walk over the products, on paper or on a sheet.
class RapportoMagazzino {
 public:
  RapportoMagazzino(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                    const SceltaMagazzino& scelta)
      : ambiente_(ambiente),
        scelta_(scelta),
        tabella_(ambiente, scelta.colonne),
        rapporto_(ambiente, uscite),
        rotture_(tabella_.Tabella(), {}) {
    rapporto_.Tavola(tabella_.Tabella(), "R_SCRITTATOT",
                     tabella_.Mostra("codice") ? "Codice" : "Descrizione");
  }

  bool Stampa(std::int64_t quanti) {
    reports::Cornice cornice;
    cornice.rapporto = "situazione magazzino";
    cornice.titolo = "Situazione magazzino";
    cornice.grafico = scelta_.stGrafico;
    cornice.xTar = scelta_.xTar;
    return rapporto_.Apri(cornice, [this] { Testata(); }) && Scorri(quanti);
  }

  reports::Foglio Foglio(std::int64_t quanti) {
    reports::Foglio foglio;
    rapporto_.ApriFoglio(foglio, {{Titolo()}, {ScrittaMagazzino(scelta_)}});
    if (!Scorri(quanti)) return {};
    return foglio;
  }

 private:
  [[nodiscard]] Data SituazioneAl() const {
    return scelta_.finoAl.Nulla() ? ambiente_.Ora().Oggi() : scelta_.finoAl;
  }
  [[nodiscard]] std::string Titolo() const {
    return "SITUAZIONE MAGAZZINO anno " + std::to_string(ambiente_.Anno()) + "   situazione al " +
           SituazioneAl().Testo();
  }

  void Testata() {
    rapporto_.TestataDitta();
    const std::string scritta = ScrittaMagazzino(scelta_);
    if (rapporto_.Grafico()) {
      rapporto_.Titolo("TITOLO", Titolo());
      rapporto_.Titolo("TITOLO2", scritta);
      return;
    }
    constexpr std::size_t kPostoScritta = 49;
    rapporto_.Riga({"SITUAZIONE MAGAZZINO anno ####, " + reports::Ripeti("$", kPostoScritta) +
                        "   situazione al $$$$$$$$  ",
                    {},
                    true},
                   {ambiente_.Anno(), scritta, SituazioneAl()});
    if (LunghezzaTesto(scritta) > kPostoScritta) rapporto_.RigaTesto(scritta);
    rapporto_.Titoli();
  }

  bool Scorri(std::int64_t quanti) {
    rapporto_.Avvia("Situazione magazzino", quanti, kOgni);
    const bool tutti = ScorriMagazzino(
        ambiente_, scelta_, tabella_.Mostra("costoFornitore"), [this] { return rapporto_.Passo(); },
        [this](const RigaMagazzino& riga) {
          Prodotto(riga);
          return true;
        });
    if (!tutti) return false;
    Totali();
    return !rapporto_.Interrotta() && rapporto_.Fine();
  }

  [[nodiscard]] std::string Scrivi(const CostoFornitore& costo) const {
    return ScriviImporto(costo.costo, tabella_.DecimaliPrezzo());
  }

  /// On paper each supplier has a line, on a sheet a product is one row whatever it has.
  void Prodotto(const RigaMagazzino& riga) {
    LineaMagazzino linea{&riga, {}, false};
    if (rapporto_.SuFoglio()) {
      for (const CostoFornitore& costo : riga.fornitori) {
        linea.costoFornitore +=
            (linea.costoFornitore.empty() ? "" : "; ") + costo.fornitore + " " + Scrivi(costo);
      }
    } else if (!riga.fornitori.empty()) {
      linea.costoFornitore = Scrivi(riga.fornitori.front());
    }
    const std::vector<Valore> celle = tabella_.Tabella().Celle(linea);
    if (scelta_.stampoSoloDiversi0 && tabella_.TuttiZero(celle)) return;
    ++prodotti_;
    digitato_ += riga.valoreDigitato;
    ultimo_ += riga.valoreUltimo;
    medio_ += riga.valoreMedio;
    rotture_.Riga(linea, celle);
    rapporto_.RigaTavola(celle, AlProdotto(riga.prodotto.cod));
    if (rapporto_.SuFoglio()) return;
    for (std::size_t i = 1; i < riga.fornitori.size(); ++i) {
      rapporto_.RigaTavola(tabella_.Tabella().Celle({&riga, Scrivi(riga.fornitori[i]), true}));
    }
  }

  void Totali() {
    rapporto_.Riserva(3);
    rapporto_.Filo("=");
    rapporto_.Totale(
        "TOTALE " + std::to_string(prodotti_) + (prodotti_ == 1 ? " prodotto" : " prodotti"),
        rotture_.Generali());
    // Whatever columns were picked.
    rapporto_.Scritta("R_SCRITTATOT",
                      "valore totale: al costo digitato " + ScriviImportoFisso(digitato_, 2) +
                          ", al costo ultimo " + ScriviImportoFisso(ultimo_, 2) +
                          ", al costo medio " + ScriviImportoFisso(medio_, 2),
                      true);
  }

  Ambiente& ambiente_;
  const SceltaMagazzino& scelta_;
  TabellaMagazzino tabella_;
  reports::Rapporto rapporto_;
  reports::Rotture<LineaMagazzino> rotture_;
  std::int64_t prodotti_ = 0;
  Importo digitato_;
  Importo ultimo_;
  Importo medio_;
};

}  // namespace

std::int64_t StampaMagazzino::Pronti(const SceltaMagazzino& scelta) {
  if (Rifiuta(ambiente_, DifettoScelta(scelta))) return 0;
  return reports::Trovati(
      ambiente_, [&] { return ContaProdotti(ambiente_, scelta.prodotti); },
      [&] { return "nessun prodotto da stampare: " + ScrittaProdotti(scelta.prodotti); });
}

bool StampaMagazzino::Stampa(const SceltaMagazzino& scelta) {
  const std::int64_t quanti = Pronti(scelta);
  return quanti != 0 && RapportoMagazzino(ambiente_, uscite_, scelta).Stampa(quanti);
}

reports::Foglio StampaMagazzino::Foglio(const SceltaMagazzino& scelta) {
  const std::int64_t quanti = Pronti(scelta);
  if (quanti == 0) return {};
  return RapportoMagazzino(ambiente_, uscite_, scelta).Foglio(quanti);
}

}  // namespace fenalto::warehouse
