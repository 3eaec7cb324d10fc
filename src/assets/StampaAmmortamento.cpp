#include "assets/StampaAmmortamento.h"

#include <utility>

namespace fenalto::assets {

namespace {

reports::Tabella<LineaAmmortamento> TabellaAmmortamento() {
  using L = LineaAmmortamento;
  return reports::Tabella<L>(
      {{{"N.", " $$$$$", "R_NCESP", "", {"N.", Tipo::Intero}}, &L::nCesp},
       {{"CESPITE", " " + reports::Ripeti("§", 36), "R_DESCRIZIONE", "", {"Cespite"}},
        &L::descrizione},
       {{"ESITO", " " + reports::Ripeti("§", 74), "R_ESITO", "", {"Esito"}}, &L::testo},
       {{"QUOTA", " ##.###.###,##", "R_IMPORTO", "R_TOTIMPORTO", {"Quota", Tipo::Importo}, true},
        [](const L& linea) { return linea.importo ? Valore(*linea.importo) : Valore(); }}});
}

/// Under the text of the line before.
reports::Fascia Seguito() {
  return {reports::Ripeti(" ", 44) + reports::Ripeti("§", 74), {"R_ESITO"}};
}

}  // namespace

StampaAmmortamento::StampaAmmortamento(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                                       std::string documento, TitoloAnno titolo)
    : documento_(std::move(documento)),
      titolo_(std::move(titolo)),
      tabella_(TabellaAmmortamento()),
      rapporto_(ambiente, uscite),
      totale_(tabella_.Tutte().size()) {
  rapporto_.Tavola(tabella_, "R_SCRITTATOT", "Cespite");
}

bool StampaAmmortamento::Apri(bool grafico, double xTar) {
  reports::Cornice cornice;
  cornice.rapporto = documento_;
  cornice.titolo = documento_;
  cornice.grafico = grafico;
  cornice.xTar = xTar;
  return rapporto_.Apri(cornice, [this] { Testata(); });
}

void StampaAmmortamento::Testata() {
  rapporto_.TestataDitta();
  if (rapporto_.Grafico()) {
    rapporto_.Titolo("TITOLO", documento_);
    rapporto_.Titolo("TITOLO2", titolo_.Testo());
    return;
  }
  rapporto_.RigaTesto(documento_, true);
  titolo_.Stampa(rapporto_);
  rapporto_.Titoli();
}

void StampaAmmortamento::Categoria(const std::string& cod, const std::string& descrizione) {
  rapporto_.Riserva(3);
  rapporto_.Stacco();
  if (rapporto_.Grafico()) {
    rapporto_.Scritta("R_SCRITTATOT", "CATEGORIA " + cod + " " + descrizione, true);
    return;
  }
  rapporto_.Riga({" CATEGORIA $$$$$$$$ " + reports::Ripeti("$", 40), {}, true}, {cod, descrizione});
}

void StampaAmmortamento::Linea(const LineaAmmortamento& linea) {
  const std::vector<Valore> celle = tabella_.Celle(linea);
  tabella_.Somma(totale_, celle);
  rapporto_.RigaTavola(celle, AlNumero("Cespiti", linea.nCesp));
  if (!linea.seguito.empty()) rapporto_.Riga(Seguito(), {linea.seguito});
}

bool StampaAmmortamento::Fine(const std::string& piede) {
  rapporto_.Riserva(3);
  rapporto_.Filo("=");
  rapporto_.Totale("TOTALE", totale_);
  rapporto_.Scritta("R_SCRITTATOT", piede);
  return !rapporto_.Interrotta() && rapporto_.Fine();
}

}  // namespace fenalto::assets
