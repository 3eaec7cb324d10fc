#include "help/CapitoloDi.h"

#include <array>

#include "core/values/Testo.h"

namespace fenalto::help {
namespace {

struct RigaFunzione {
  std::string_view funzione;
  std::string_view file;
  std::string_view ancora = {};
};

constexpr std::string_view kArchivi = "07-archivi.md";

constexpr auto kFunzioni = std::to_array<RigaFunzione>({
    {"Sfondo", "01-cominciare.md", "la-pagina-iniziale"},
    {"CercaFunzione", "01-cominciare.md", "trovare-tutto-con-ctrlk"},
    {"Movimenti", "04-primanota.md"},
    {"MovimentiConto", "19-stampare.md"},
    {"Fatture", "05-fatture.md"},
    {"FattureCli", "32-documenti.md"},
    {"FattureSospIva", "06-registro-iva.md", "fatture-in-sospensione"},
    {"STRegistroIvaUnico", "06-registro-iva.md"},
    {"StRegistriIva", "06-registro-iva.md"},
    {"Clienti", "08-clienti-e-fornitori.md"},
    {"Fornitori", "08-clienti-e-fornitori.md"},
    {"STClienti", "08-clienti-e-fornitori.md"},
    {"STFornitori", "08-clienti-e-fornitori.md"},
    {"InterrCliFor", "08-clienti-e-fornitori.md"},
    {"Conti", "09-piano-dei-conti.md"},
    {"Mastri", "09-piano-dei-conti.md"},
    {"VisPdc", "09-piano-dei-conti.md"},
    {"CodiciIva", "10-codici-e-registri-iva.md"},
    {"RegistriIva", "10-codici-e-registri-iva.md"},
    {"CodiciPagamento", "11-codici-pagamento.md"},
    {"Scadenze", "12-archivio-scadenze.md"},
    {"ScadenzeModifica", "12-archivio-scadenze.md"},
    {"TestSaldi", "12-archivio-scadenze.md"},
    {"PagamentiDaScadenzario", "13-pagamenti-e-incassi.md"},
    {"PagamentiDaScadenzario1Cli", "13-pagamenti-e-incassi.md"},
    {"AccontiPrimaDiFattura", "13-pagamenti-e-incassi.md", "anticipi"},
    {"AbbinaEstratto", "13-pagamenti-e-incassi.md", "lestratto-conto-della-banca"},
    {"RiBa", "14-ricevute-bancarie.md"},
    {"RiBaRaggruppamento", "14-ricevute-bancarie.md", "raggruppare-le-ricevute"},
    {"InsolutiRiba", "13-pagamenti-e-incassi.md", "insoluti"},
    {"SituazioneScadenze", "15-situazione-scadenze.md"},
    {"STScadenzePerConto", "15-situazione-scadenze.md"},
    {"STScadenzePerData", "15-situazione-scadenze.md"},
    {"STEstrattoConto", "15-situazione-scadenze.md"},
    {"EliminazioneProdotto", "29-cercare-e-rinominare-prodotti.md",
     "eliminare-e-rinominare-un-prodotto"},
    {"VisCodiciRiga", "29-cercare-e-rinominare-prodotti.md"},
    {"ProdottiMovCliFor", "29-cercare-e-rinominare-prodotti.md", "i-prodotti-recenti"},
    {"Utility", "16-impostazioni-ditta.md"},
    {"Utility:2", "25-utilita.md"},
    {"Utility:3", "23-copie-di-sicurezza.md"},
    {"STBilancioVerifica", "17-bilanci.md"},
    {"StGiornale", "18-libro-giornale.md"},
    {"Cespiti", "26-cespiti.md"},
    {"CategorieCespiti", "26-cespiti.md", "le-categorie"},
    {"TipiFattureCli", "31-tipi-di-documento.md"},
    {"CodiciRiga", "28-prodotti.md"},
    {"ChiusureAperture", "27-fine-anno.md"},
    {"NuovoEsercizio", "27-fine-anno.md", "aprire-lanno-nuovo"},
    {"StProdotti", "30-magazzino.md", "la-situazione-di-magazzino"},
    {"TrasportoEsistenze", "30-magazzino.md", "il-trasporto-delle-esistenze"},
    {"Importa", "20-importare.md"},
    {"Ut", "21-utenti-e-livelli.md"},
});

}  // namespace

Posto CapitoloDi(std::string_view funzione) {
  for (const RigaFunzione& riga : kFunzioni) {
    if (UgualeTesto(riga.funzione, funzione)) {
      return {std::string(riga.file), std::string(riga.ancora)};
    }
  }
  // A page without a chapter of its own is told with its window.
  if (const auto punto = funzione.find(':'); punto != std::string_view::npos) {
    return CapitoloDi(funzione.substr(0, punto));
  }
  return {std::string(funzione.empty() ? "01-cominciare.md" : kArchivi), {}};
}

}  // namespace fenalto::help
