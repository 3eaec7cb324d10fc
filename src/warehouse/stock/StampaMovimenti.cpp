#include "warehouse/stock/StampaMovimenti.h"

#include <algorithm>

#include "core/reports/Rapporto.h"
#include "core/values/PrimaLinea.h"
#include "warehouse/products/Prodotto.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::warehouse {
namespace {

constexpr std::size_t kLarghezzaDescrizione = 45;
constexpr std::int64_t kOgniMovimenti = 200;

using Movimenti = reports::Tabella<RigaMovimento>;

/// The lines of a movement's text one after the other.
std::string InUnaRiga(const std::string& testo) {
  std::string riga;
  for (const char c : testo) riga += c == '\n' ? std::string("; ") : std::string(1, c);
  return riga;
}

Movimenti TabellaMovimenti(Ambiente& ambiente, const FiltroMovimenti& filtro) {
  using R = RigaMovimento;
  const int decQ = DecimaliQuantita(ambiente);
  const int decP = DecimaliPrezzo(ambiente);
  const auto cifra = [](const char* titolo, const char* campo, const char* nome, int decimali,
                        Importo R::* membro) {
    std::string coda =
        decimali == 0 ? "," : "," + std::string(static_cast<std::size_t>(decimali), '#');
    return reports::ColonnaDi<R>{
        {titolo, " #.###.###" + coda, campo, "", {nome, Tipo::Importo, decimali}},
        [membro](const R& r) { return r.ConCifre() ? Valore(r.*membro) : Valore(); }};
  };
  auto prezzo = cifra("prezzo", "R_PREZZO", "Prezzo", decP, &R::prezzo);
  prezzo.mostrata = filtro.anchePrezzi;
  if (!filtro.anchePrezzi) prezzo.foglio.titolo.clear();
  const char* figura = VistaMovimenti::TitoloEsistenza(filtro);
  return Movimenti(
      {{{"movimento",
         reports::Ripeti("$", kLarghezzaDescrizione),
         "R_descrizione",
         "",
         {"Movimento"}},
        [](const R& r) { return InUnaRiga(r.descrizione); }},
       {{"mag.", " $$$$", "R_mag", "", {"Magazzino"}}, &R::mag},
       {{"data", " $$$$$$$$$$", "R_DT", "", {"Data", Tipo::Data}}, &R::dt},
       {{"tipo", " $$$$", "R_TIPO", "", {"Tipo"}}, &R::tipoDoc},
       {{"n.doc.", " ######,", "R_NUMDOC", "", {"N. documento", Tipo::Intero}},
        [](const R& r) { return r.numDoc == 0 ? Valore() : Valore(r.numDoc); }},
       cifra("carichi", "R_CARICHI", "Carichi", decQ, &R::carichi),
       cifra("scarichi", "R_SCARICHI", "Scarichi", decQ, &R::scarichi),
       cifra(figura, "R_esistenza", figura, decQ, &R::esistenza),
       prezzo,
       {{"", "", "", "", {"Descrizione sul documento"}, false, false}, &R::descrizione2}});
}

/// The walk over the movements, on paper or on a sheet.
class RapportoMovimenti {
 public:
  RapportoMovimenti(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                    const SceltaMovimenti& scelta, Prodotto prodotto)
      : ambiente_(ambiente),
        scelta_(scelta),
        prodotto_(std::move(prodotto)),
        tabella_(TabellaMovimenti(ambiente, scelta.filtro)),
        rapporto_(ambiente, uscite) {
    rapporto_.Tavola(tabella_);
  }

  bool Stampa() {
    reports::Cornice cornice;
    cornice.rapporto = "movimenti del prodotto";
    cornice.titolo = "Movimenti " + prodotto_.cod;
    cornice.modello = "TiXProd";
    cornice.grafico = scelta_.stGrafico;
    cornice.xTar = scelta_.xTar;
    return rapporto_.Apri(cornice, [this] { Testata(); }) && Scorri();
  }

  reports::Foglio Foglio() {
    reports::Foglio foglio;
    rapporto_.ApriFoglio(foglio, {{Titolo()}, {Periodo()}, {Filtri()}});
    if (!Scorri()) return {};
    return foglio;
  }

 private:
  [[nodiscard]] std::string Titolo() const {
    return "Movimenti di magazzino del prodotto " + prodotto_.cod + " " +
           PrimaLinea(prodotto_.descrizione);
  }
  [[nodiscard]] std::string Periodo() const {
    const FiltroMovimenti& f = scelta_.filtro;
    std::string testo = "anno " + std::to_string(ambiente_.Anno());
    if (!f.daDt.Nulla()) testo += " dal " + f.daDt.Testo();
    if (!f.aaDt.Nulla()) testo += " al " + f.aaDt.Testo();
    return testo;
  }
  [[nodiscard]] std::string Filtri() const {
    const FiltroMovimenti& f = scelta_.filtro;
    std::string testo;
    if (!f.mag.empty()) testo = "solo magazzino " + f.mag;
    if (!f.tipoDoc.empty()) {
      testo += std::string(testo.empty() ? "" : ", ") + "solo tipo documento " + f.tipoDoc;
    }
    return testo;
  }

  void Testata() {
    rapporto_.TestataDitta();
    if (!rapporto_.Grafico()) {
      rapporto_.RigaTesto(Titolo() + "  " + Periodo() + "  " + Filtri(), true);
      rapporto_.Titoli();
      return;
    }
    const FiltroMovimenti& f = scelta_.filtro;
    rapporto_.Titolo("TITOLO", "Movimenti di magazzino");
    rapporto_.Titolo("CODICERIGA", prodotto_.cod);
    rapporto_.Titolo("DESCRIZIONEPRODOTTO", PrimaLinea(prodotto_.descrizione));
    rapporto_.Titolo("UM", prodotto_.um);
    rapporto_.Titolo("DADT", f.daDt.Testo());
    rapporto_.Titolo("AADT", f.aaDt.Testo());
    rapporto_.Titolo("VARIE1", f.mag.empty() ? "" : "solo magazzino " + f.mag);
    rapporto_.Titolo("VARIE2", f.tipoDoc.empty() ? "" : "solo tipo documento " + f.tipoDoc);
    rapporto_.Titolo("SCRITTAESISTENZA", VistaMovimenti::TitoloEsistenza(f));
    rapporto_.Titolo("PREZZOCOSTO", f.anchePrezzi ? "prezzo" : "");
  }

  bool Scorri() {
    rapporto_.Avvia("Movimenti del prodotto", 0, kOgniMovimenti);
    VistaMovimenti vista(ambiente_, scelta_.filtro);
    while (const std::optional<RigaMovimento> riga = vista.Prossima()) {
      if (!rapporto_.Passo()) return false;
      Riga(*riga);
    }
    return !rapporto_.Interrotta() && rapporto_.Fine();
  }

  void Riga(const RigaMovimento& riga) {
    const Rinvio rinvio = riga.genere == GenereMovimento::Movimento
                              ? Rinvio{.funzione = "FattureCli",
                                       .codice = std::to_string(riga.numDoc),
                                       .anno = riga.anno,
                                       .classe = riga.tipoDoc}
                              : Rinvio{};
    const bool totali = riga.genere == GenereMovimento::Totali;
    if (totali) rapporto_.Filo("-");
    if (rapporto_.Grafico() || rapporto_.SuFoglio()) {
      return rapporto_.RigaTavola(tabella_.Celle(riga), rinvio, totali);
    }
    // The text form goes on below, where a model does it by itself.
    RigaMovimento una = riga;
    const auto pezzi =
        rapporto_.InCampo("R_descrizione", InUnaRiga(riga.descrizione), kLarghezzaDescrizione);
    una.descrizione = pezzi.front();
    rapporto_.RigaTavola(tabella_.Celle(una), rinvio, totali);
    for (std::size_t i = 1; i < pezzi.size(); ++i) rapporto_.RigaTesto(pezzi[i]);
  }

  Ambiente& ambiente_;
  const SceltaMovimenti& scelta_;
  Prodotto prodotto_;
  Movimenti tabella_;
  reports::Rapporto rapporto_;
};

}  // namespace

bool StampaMovimenti::Pronto(const SceltaMovimenti& scelta) {
  std::optional<Rifiuto> difetto;
  if (!LeggiProdotto(ambiente_, scelta.filtro.prodotto)) {
    difetto = {"digitare un codice prodotto", "Cod"};
  }
  return !Rifiuta(ambiente_, difetto);
}

bool StampaMovimenti::Stampa(const SceltaMovimenti& scelta) {
  if (!Pronto(scelta)) return false;
  return RapportoMovimenti(ambiente_, uscite_, scelta,
                           LeggiProdotto(ambiente_, scelta.filtro.prodotto).value())
      .Stampa();
}

reports::Foglio StampaMovimenti::Foglio(const SceltaMovimenti& scelta) {
  if (!Pronto(scelta)) return {};
  return RapportoMovimenti(ambiente_, uscite_, scelta,
                           LeggiProdotto(ambiente_, scelta.filtro.prodotto).value())
      .Foglio();
}

}  // namespace fenalto::warehouse
