#include "ledger/accounts/ArchiviContabili.h"

#include <optional>
#include <string>
#include <string_view>

#include "core/values/Testo.h"

namespace fenalto::ledger {
namespace {

constexpr const char* kPredefinite = "'APE' e 'APEX' sono predefinite";
constexpr const char* kNonModificabili =
    "'APE' e 'APEX' sono predefinite e non si possono modificare";
constexpr const char* kRiservate =
    "le causali con codice che inizia con un numero (da 1 a 9) sono riservate alle registrazioni "
    "iva";

bool Predefinita(std::string_view codice) {
  return UgualeTesto(codice, "APE") || UgualeTesto(codice, "APEX");
}

/// Causals of the VAT registers: made and erased with their register.
bool DiRegistro(std::string_view codice) {
  return !codice.empty() && codice.front() >= '1' && codice.front() <= '9';
}

std::optional<Rifiuto> CausaleIntoccabile(archives::ContestoArchivio& contesto) {
  if (Predefinita(contesto.codicePrima)) return Rifiuto{kNonModificabili, "Cod"};
  if (DiRegistro(contesto.codicePrima)) return Rifiuto{kRiservate, "Cod"};
  return std::nullopt;
}

std::optional<Rifiuto> CodiceRiservato(archives::ContestoArchivio& contesto) {
  if (!contesto.CodiceCambiato()) return std::nullopt;
  if (Predefinita(contesto.Codice())) return Rifiuto{kPredefinite, "Cod"};
  if (DiRegistro(contesto.Codice())) return Rifiuto{kRiservate, "Cod"};
  return std::nullopt;
}

archives::DescrizioneArchivio Causali() {
  archives::DescrizioneArchivio causali;
  causali.finestra = "Causali";
  causali.titolo = "Archivio Causali contabili";
  causali.tabella = "Causali";
  causali.titoloNuovo = "nuova causale";
  causali.titoloRecord = "causale ";
  causali.filtro = "(cod<'1' or cod>'9zz')";
  causali.caratteriCodice = 6;
  causali.campi = {
      {.nome = "Ripete",
       .didascalia = "propone l'importo a pareggio e ripete la descrizione della prima riga",
       .elenco = true}};
  causali.controlli = {CausaleIntoccabile, CodiceRiservato};
  causali.guardieElimina = {CausaleIntoccabile};
  return causali;
}

std::optional<Rifiuto> CategoriaFissa(archives::ContestoArchivio& contesto) {
  if (contesto.nuovo) {
    // A copy of a fixed category is one of the user's own.
    contesto.scheda.Scrivi("nonmodif", false);
    return std::nullopt;
  }
  if (!contesto.scheda.Leggi("nonmodif").Booleano()) return std::nullopt;
  return Rifiuto{"categoria " + contesto.codicePrima + " non modificabile", "Cod"};
}

archives::DescrizioneArchivio Categorie() {
  archives::DescrizioneArchivio categorie;
  categorie.finestra = "Categorie";
  categorie.titolo = "Archivio Categorie per ripartizione fatture e movimenti contabili";
  categorie.tabella = "Categorie";
  categorie.titoloNuovo = "nuova categoria";
  categorie.titoloRecord = "categoria ";
  categorie.campi = {
      {.nome = "nonmodif", .didascalia = "predefinita: non si può modificare", .elenco = true}};
  // Only the program marks a category.
  categorie.stato = [](const archives::ContestoArchivio&, const std::string& nome) {
    return records::StatoCampo{.attivo = nome != "nonmodif"};
  };
  categorie.controlli = {CategoriaFissa};
  categorie.guardieElimina = {CategoriaFissa};
  return categorie;
}

archives::DescrizioneArchivio Ritenute() {
  archives::DescrizioneArchivio ritenute;
  ritenute.finestra = "Ritenute";
  ritenute.titolo = "Archivio Tipi ritenuta per fatture emesse";
  ritenute.tabella = "Ritenute";
  ritenute.titoloNuovo = "nuova categoria";
  ritenute.titoloRecord = "ritenuta ";
  ritenute.campi = {{.nome = "Perc", .didascalia = "Percentuale", .elenco = true},
                    {.nome = "Causale",
                     .didascalia = "Causale del giro ritenuta",
                     .genere = records::GenereCampo::Codice,
                     .fonte = "causaliTutte",
                     .elenco = true},
                    {.nome = "Conto",
                     .didascalia = "Conto del giro ritenuta",
                     .genere = records::GenereCampo::Codice,
                     .fonte = "contiTutti",
                     .elenco = true}};
  return ritenute;
}

}  // namespace

std::vector<archives::DescrizioneArchivio> ArchiviContabili() {
  return {Causali(), Categorie(), Ritenute()};
}

}  // namespace fenalto::ledger
