#include "warehouse/products/ArchiviMagazzino.h"

#include <optional>
#include <utility>

#include "core/archives/Riferimenti.h"
#include "core/values/Testo.h"

namespace fenalto::warehouse {
namespace {

archives::DescrizioneArchivio SoloDescrizione(std::string tabella, std::string titolo,
                                              std::string titoloNuovo, std::string titoloRecord) {
  archives::DescrizioneArchivio archivio;
  archivio.finestra = tabella;
  archivio.titolo = std::move(titolo);
  archivio.tabella = std::move(tabella);
  archivio.titoloNuovo = std::move(titoloNuovo);
  archivio.titoloRecord = std::move(titoloRecord);
  return archivio;
}

std::optional<Rifiuto> EsistonoMovimenti(const char* cosa, const char* campo) {
  std::string messaggio(cosa);
  messaggio +=
      " perchè esistono già movimenti magazzino con questa causale o sono previsti tipi documento";
  return Rifiuto{std::move(messaggio), campo};
}

bool InUso(archives::ContestoArchivio& contesto) {
  return archives::CodiceUsato(contesto.ambiente, "CausaliMag", contesto.codicePrima).has_value();
}

std::optional<Rifiuto> CaricoOScarico(archives::ContestoArchivio& contesto) {
  const std::string cs = contesto.scheda.Testo("CS");
  if (UgualeTesto(cs, "C") || UgualeTesto(cs, "S")) {
    contesto.scheda.Scrivi("CS", Maiuscolo(cs));
    return std::nullopt;
  }
  return Rifiuto{"impostare Carico=C oppure Scarico=S", "CS"};
}

/// The sense stands on every movement already made: changing it here would part them.
std::optional<Rifiuto> SensoFermo(archives::ContestoArchivio& contesto) {
  if (contesto.nuovo) return std::nullopt;
  const std::string prima = NzStr(
      contesto.ambiente.Cerca("tessarc", "CausaliMag", {{"Cod", contesto.codicePrima}}, "CS"));
  if (UgualeTesto(prima, contesto.scheda.Testo("CS")) || !InUso(contesto)) return std::nullopt;
  return EsistonoMovimenti("carico/scarico non si può variare", "CS");
}

std::optional<Rifiuto> Esistenza(archives::ContestoArchivio& contesto) {
  if (!UgualeTesto(contesto.codicePrima, "EI")) return std::nullopt;
  return Rifiuto{"EI è una causale predefinita non si può eliminare", "Cod"};
}

std::optional<Rifiuto> NonEliminabile(archives::ContestoArchivio& contesto) {
  if (!InUso(contesto)) return std::nullopt;
  return EsistonoMovimenti("non si può eliminare", "Cod");
}

archives::DescrizioneArchivio CausaliMag() {
  archives::DescrizioneArchivio causali =
      SoloDescrizione("CausaliMag", "Archivio Causali movimentazione magazzino",
                      "nuova causale movimentazione", "causale movimentazione ");
  causali.campi = {{.nome = "CS",
                    .didascalia = "Carico/Scarico",
                    .caratteri = 1,
                    .scelte = {{"C", "CARICO (aumenta la giacenza di magazzino)"},
                               {"S", "SCARICO (diminuisce la giacenza di magazzino)"}},
                    .elenco = true,
                    .maiuscole = true}};
  causali.controlli = {CaricoOScarico, SensoFermo};
  // A code in use is refused with the references' own message.
  causali.guardieCodice = {Esistenza};
  causali.guardieElimina = {Esistenza, NonEliminabile};
  return causali;
}

}  // namespace

std::vector<archives::DescrizioneArchivio> ArchiviMagazzino() {
  return {SoloDescrizione("CategorieMag", "Archivio Categorie prodotti", "nuova categoria",
                          "categoria "),
          SoloDescrizione("CategorieMag2", "Archivio Categorie 2 prodotti", "nuova categoria",
                          "categoria "),
          SoloDescrizione("GruppiMag", "Archivio Gruppi prodotti", "nuovo gruppo", "gruppo "),
          SoloDescrizione("GruppiMag2", "Archivio Gruppi 2 prodotti", "nuovo gruppo", "gruppo "),
          SoloDescrizione("Magazzini", "Archivio Magazzini e depositi", "nuova magazzino",
                          "magazzino "),
          CausaliMag()};
}

}  // namespace fenalto::warehouse
