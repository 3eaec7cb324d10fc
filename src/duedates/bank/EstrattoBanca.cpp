#include "duedates/bank/EstrattoBanca.h"

#include <utility>

#include "core/archives/LettoreTabella.h"

namespace fenalto::duedates {
namespace {

constexpr const char* kData = "Data";
constexpr const char* kDescrizione = "Descrizione";
constexpr const char* kImporto = "Importo";
constexpr const char* kAddebito = "Addebito";
constexpr const char* kAccredito = "Accredito";

const archives::GenereImporta& Genere() {
  static const archives::GenereImporta genere{
      .nome = "EstrattoBanca", .titolo = "estratto conto", .tabelle = {}, .campi = CampiEstratto()};
  return genere;
}

}  // namespace

const std::vector<archives::CampoImporta>& CampiEstratto() {
  static const std::vector<archives::CampoImporta> campi = {
      {.nome = kData,
       .didascalia = "Data",
       .sinonimi = {"Data operazione", "Data contabile", "Data movimento", "Data registrazione",
                    "Data op", "Giorno", "Data valuta", "Valuta"},
       .obbligatorio = true},
      {.nome = kDescrizione,
       .didascalia = "Descrizione",
       .sinonimi = {"Descrizione operazione", "Descrizione movimento", "Descrizione estesa",
                    "Causale", "Dettagli", "Operazione", "Note"},
       .lunghezza = kCaratteriLinea},
      {.nome = kImporto,
       .didascalia = "Importo con segno",
       .sinonimi = {"Importo", "Importo in euro", "Importo eur", "Importo euro", "Ammontare",
                    "Movimento"}},
      {.nome = kAddebito,
       .didascalia = "Addebiti",
       .sinonimi = {"Addebito", "Dare", "Uscite", "Uscita", "Importo dare", "Pagamenti"}},
      {.nome = kAccredito,
       .didascalia = "Accrediti",
       .sinonimi = {"Accredito", "Avere", "Entrate", "Entrata", "Importo avere", "Incassi"}},
  };
  return campi;
}

Esito<bool> EstrattoBanca::Apri(const std::filesystem::path& file) {
  return Prendi(archives::LeggiTabella(file));
}

Esito<bool> EstrattoBanca::ApriTesto(std::string_view byte) {
  return Prendi(archives::LeggiTabellaDaTesto(byte));
}

Esito<bool> EstrattoBanca::Prendi(Esito<TabellaCsv> letta) {
  if (!letta) return letta.Errore();
  tabella_ = std::move(letta).Valore();
  lette_ = {};
  corrispondenze_ = std::make_unique<archives::Corrispondenze>(ambiente_, Genere(), CampiEstratto(),
                                                               tabella_.nomi);
  return true;
}

Esito<bool> EstrattoBanca::Leggi() {
  lette_ = {};
  const archives::Corrispondenze& dove = *corrispondenze_;
  const ColonneEstratto colonne{dove.Colonna(kData), dove.Colonna(kDescrizione),
                                dove.Colonna(kImporto), dove.Colonna(kAddebito),
                                dove.Colonna(kAccredito)};
  if (const std::string manca = colonne.Manca(); !manca.empty()) {
    return Errore{"nell'estratto conto manca " + manca +
                  ": indicare quale colonna del file la contiene"};
  }
  lette_ = LeggiLinee(tabella_, colonne);
  corrispondenze_->Ricorda();
  return true;
}

}  // namespace fenalto::duedates
