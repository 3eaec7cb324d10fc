#include "ledger/accounts/PianoDeiConti.h"

#include <optional>
#include <string>
#include <vector>

#include "core/archives/Importazione.h"
#include "core/values/Testo.h"
#include "ledger/accounts/CodiceConto.h"
#include "ledger/accounts/ContiClientiFornitori.h"
#include "ledger/accounts/PannelloSaldo.h"

namespace fenalto::ledger {

namespace {

/// Greatest length of an account's code: the place it has on every report.
constexpr int kCaratteriConto = 10;
constexpr int kCaratteriMeta = 6;  ///< of a master's code, and of a sub-code

const std::vector<records::VoceScelta>& PatrimonialeEconomico() {
  static const std::vector<records::VoceScelta> voci = {{"P", "Patrimoniale", "OptPatrimoniale"},
                                                        {"E", "Economico", "OptEcomomico"}};
  return voci;
}

// --- Masters -------------------------------------------------------------------------------------

constexpr const char* kMastroConConti =
    "non si può variare o annullare : ci sono conti relativi a questo mastro";

std::optional<Rifiuto> MastroUsato(archives::ContestoArchivio& contesto) {
  if (contesto.nuovo || !HaConti(contesto.ambiente, contesto.codicePrima)) return std::nullopt;
  return Rifiuto{kMastroConConti, "Cod"};
}

std::optional<Rifiuto> MastroUsatoVariato(archives::ContestoArchivio& contesto) {
  return contesto.scheda.Modificata() ? MastroUsato(contesto) : std::nullopt;
}

archives::DescrizioneArchivio Mastri() {
  archives::DescrizioneArchivio mastri;
  mastri.finestra = "Mastri";
  mastri.titolo = "Mastri";
  mastri.tabella = "Mastri";
  mastri.titoloNuovo = "nuovo mastro";
  mastri.titoloRecord = "mastro ";
  mastri.caratteriCodice = kCaratteriMeta;
  mastri.campi = {{.nome = "PatrEcon",
                   .didascalia = "Patrimoniale/Economico",
                   .genere = records::GenereCampo::Opzioni,
                   .scelte = PatrimonialeEconomico(),
                   .elenco = true}};
  mastri.aperto = [](archives::ContestoArchivio& contesto) {
    if (contesto.nuovo) contesto.scheda.Scrivi("PatrEcon", "P");
  };
  mastri.controlli = {MastroUsatoVariato};
  mastri.guardieElimina = {MastroUsato};
  return mastri;
}

// --- Accounts: the code and what follows from it -------------------------------------------------

std::string Rifilato(const Scheda& scheda, const char* campo) {
  return std::string(Rifila(scheda.Testo(campo)));
}

/// A field of the account's master; Null when there is no such master.
Valore DelMastro(archives::ContestoArchivio& contesto, const char* campo) {
  return contesto.ambiente.Cerca("tessarc", "Mastri",
                                 {{"Cod", Rifilato(contesto.scheda, "Mastro")}}, campo);
}

void ContoAperto(archives::ContestoArchivio& contesto) {
  Scheda& scheda = contesto.scheda;
  const auto [mastro, contox] = DividiCodiceConto(contesto.ambiente, contesto.Codice());
  scheda.Scrivi("Mastro", mastro);
  scheda.Scrivi("Contox", contox);
  scheda.Scrivi("ContoxLibero", "");
}

/// The account takes its master's letter, and a new one is shown the sub-code that comes next: the
/// place of the sub-code stays empty, so that one forgotten is still noticed.
void MastroLasciato(archives::ContestoArchivio& contesto) {
  Scheda& scheda = contesto.scheda;
  const Valore lettera = DelMastro(contesto, "PatrEcon");
  if (!lettera.Nullo()) scheda.Scrivi("PatrEcon", lettera);
  if (!contesto.nuovo) return;
  scheda.Scrivi("ContoxLibero",
                lettera.Nullo() ? std::string()
                                : ProssimoContox(contesto.ambiente, Rifilato(scheda, "Mastro")));
}

void ContoLasciato(archives::ContestoArchivio& contesto, const std::string& campo) {
  if (UgualeTesto(campo, "Mastro")) return MastroLasciato(contesto);
  if (!UgualeTesto(campo, "CFP") || contesto.nuovo) return;
  if (UgualeTesto(Rifilato(contesto.scheda, "CFP"), contesto.prima.Testo("CFP"))) return;
  contesto.ambiente.Dialogo().Messaggio(
      "ATTENZIONE: se esistono già registrazioni contabili non variare questo dato", Icona::Avviso);
}

void ComponiConto(archives::ContestoArchivio& contesto) {
  Scheda& scheda = contesto.scheda;
  // The master's own spelling: "ab" typed for "AB" is the same master.
  const Valore mastro = DelMastro(contesto, "Cod");
  scheda.Scrivi("Mastro", mastro.Nullo() ? Valore(Rifilato(scheda, "Mastro")) : mastro);
  scheda.Scrivi("Contox", Rifilato(scheda, "Contox"));
  scheda.Scrivi("CFP", Maiuscolo(Rifilato(scheda, "CFP")));
  scheda.Scrivi("Cod", scheda.Testo("Mastro") + "." + scheda.Testo("Contox"));
}

// --- Accounts: checks of a confirmation ----------------------------------------------------------

std::optional<Rifiuto> MancaCodice(archives::ContestoArchivio& contesto) {
  for (const char* campo : {"Mastro", "Contox"}) {
    if (contesto.scheda.Testo(campo).empty()) return Rifiuto{"manca mastro o conto", campo};
  }
  return std::nullopt;
}

std::optional<Rifiuto> MancaClasse(archives::ContestoArchivio& contesto) {
  const std::string classe = contesto.scheda.Testo("CFP");
  if (classe.empty()) return Rifiuto{"manca C F P", "CFP"};
  if (classe == "P" || classe == "C" || classe == "F") return std::nullopt;
  return Rifiuto{"C F P: «" + classe +
                     "» non è previsto, impostare P (conto), C (riepilogativo clienti) o F "
                     "(riepilogativo fornitori)",
                 "CFP"};
}

std::optional<Rifiuto> MastroInesistente(archives::ContestoArchivio& contesto) {
  if (!DelMastro(contesto, "Cod").Nullo()) return std::nullopt;
  return Rifiuto{"il mastro " + contesto.scheda.Testo("Mastro") +
                     " non esiste: inserirlo prima nell'archivio Mastri",
                 "Mastro"};
}

std::optional<Rifiuto> LetteraDiversa(archives::ContestoArchivio& contesto) {
  const std::string lettera = DelMastro(contesto, "PatrEcon").Testo();
  if (UgualeTesto(contesto.scheda.Testo("PatrEcon"), lettera)) return std::nullopt;
  return Rifiuto{"Patrimoniale/Economico : su mastro diverso da conto", "PatrEcon"};
}

std::optional<Rifiuto> CodiceLungo(archives::ContestoArchivio& contesto) {
  if (LunghezzaTesto(contesto.Codice()) <= static_cast<std::size_t>(kCaratteriConto)) {
    return std::nullopt;
  }
  return Rifiuto{"il codice " + contesto.Codice() + " supera i " + std::to_string(kCaratteriConto) +
                     " caratteri (punto compreso): accorciare il conto",
                 "Contox"};
}

// --- Accounts: the list that movements search ----------------------------------------------------

bool Semplice(const std::string& classe) {
  return UgualeTesto(classe, "P");
}

/// Only plain accounts stand in the list: an account enters it, leaves it, or takes another text.
void ScriviVoce(archives::ContestoArchivio& contesto) {
  Scheda& scheda = contesto.scheda;
  Archivio& tessarc = contesto.ambiente.ArchivioDi("tessarc");
  const VoceContiClientiFornitori prima{contesto.codicePrima, "P"};
  const VoceContiClientiFornitori ora{contesto.Codice(), "P", scheda.Testo("Descrizione")};
  const bool cEra = !contesto.nuovo && Semplice(contesto.prima.Testo("CFP"));
  const bool cE = Semplice(scheda.Testo("CFP"));

  bool trovata = true;
  if (cEra && cE && !contesto.CodiceCambiato()) {
    trovata = CambiaVoce(tessarc, ora);
  } else {
    if (cEra) trovata = TogliVoce(tessarc, prima);
    if (cE) AggiungiVoce(tessarc, ora);
  }
  contesto.daDire = trovata ? std::string() : VoceNonTrovata(contesto.codicePrima);
}

void TogliVoceDiConto(archives::ContestoArchivio& contesto) {
  TogliVoce(contesto.ambiente.ArchivioDi("tessarc"), {contesto.codicePrima, "P"});
}

// --- Accounts: buttons ---------------------------------------------------------------------------

std::vector<std::string> MostraSaldo(archives::ContestoArchivio& contesto) {
  if (contesto.nuovo) return {"conto non ancora registrato"};
  return RigheSaldo(contesto.ambiente, "P", contesto.codicePrima);
}

std::vector<std::string> MostraMovimenti(archives::ContestoArchivio& contesto) {
  if (contesto.nuovo) return {"conto non ancora registrato"};
  if (contesto.apri) contesto.apri(AlConto("P", contesto.codicePrima));
  return {};
}

std::vector<std::string> MostraPiano(archives::ContestoArchivio& contesto) {
  if (contesto.apri) contesto.apri({.funzione = "VisPdc"});
  return {};
}

archives::PulsanteArchivio PulsanteStampa(const char* nome, const char* testo,
                                          void (*stampa)(Ambiente&, reports::FabbricaUscite&)) {
  return {nome, testo, false, [stampa](archives::ContestoArchivio& contesto) {
            if (contesto.uscite != nullptr) stampa(contesto.ambiente, *contesto.uscite);
            return std::vector<std::string>();
          }};
}

archives::DescrizioneArchivio Conti() {
  archives::DescrizioneArchivio conti;
  conti.finestra = "Conti";
  conti.titolo = "Archivio Piano dei Conti";
  conti.tabella = "Conti";
  conti.titoloNuovo = "nuovo conto";
  conti.titoloRecord = "conto ";
  conti.caratteriCodice = kCaratteriConto;
  conti.codiceComposto = true;
  conti.campiExtra = {
      {"Mastro", Tipo::Testo}, {"Contox", Tipo::Testo}, {"ContoxLibero", Tipo::Testo}};
  conti.campi = {
      {.nome = "Mastro",
       .didascalia = "Mastro",
       .caratteri = kCaratteriMeta,
       .genere = records::GenereCampo::Codice,
       .fonte = "mastri"},
      {.nome = "Contox", .didascalia = "Conto", .caratteri = kCaratteriMeta},
      {.nome = "ContoxLibero",
       .didascalia = "primo conto libero",
       .caratteri = kCaratteriMeta,
       .genere = records::GenereCampo::Etichetta},
      {.nome = "Descrizione", .didascalia = "Descrizione"},
      {.nome = "CFP",
       .didascalia = "C F P",
       .caratteri = 1,
       .scelte = {{"P", "conto"}, {"C", "riepilogativo clienti"}, {"F", "riepilogativo fornitori"}},
       .elenco = true,
       .maiuscole = true},
      {.nome = "PatrEcon",
       .didascalia = "Patrimoniale/Economico",
       .genere = records::GenereCampo::Opzioni,
       .scelte = PatrimonialeEconomico(),
       .elenco = true},
      {.nome = "ImportoSitAziendale",
       .didascalia = "Rettifica di bilancio",
       .nota = "stampata con * nei bilanci: non è una registrazione"},
      {.nome = "Cespite", .didascalia = "bene ammortizzabile"}};
  conti.pulsanti = {
      {"saldo", "Saldo", true, MostraSaldo},
      {"movimenti", "Movimenti", true, MostraMovimenti},
      {"VisPdc", "Vedi piano dei conti", false, MostraPiano},
      archives::PulsanteImporta("Conti"),
      PulsanteStampa("StampaPdc", "Stampa Piano dei Conti", StampaPianoDeiConti),
      PulsanteStampa("StampaRettifiche", "Stampa Conti con  rettifiche", StampaContiConRettifiche)};
  conti.aperto = ContoAperto;
  conti.lasciato = ContoLasciato;
  conti.stato = [](const archives::ContestoArchivio& contesto, const std::string& nome) {
    return records::StatoCampo{.visibile = nome != "ContoxLibero" || contesto.nuovo};
  };
  conti.compone = ComponiConto;
  conti.controlli = {MancaCodice, MancaClasse, MastroInesistente, LetteraDiversa, CodiceLungo};
  conti.conScrittura = ScriviVoce;
  conti.conEliminazione = TogliVoceDiConto;
  return conti;
}

}  // namespace

std::vector<archives::DescrizioneArchivio> ArchiviPianoDeiConti() {
  return {Mastri(), Conti()};
}

PianoLetto LeggiPiano(Ambiente& ambiente) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const auto voce = [](const Rs& rs) {
    return VocePiano{
        .cod = rs.Fields("Cod").Testo(),
        .descrizione = rs.Fields("Descrizione").Testo(),
        .cfp = {},
        .patrEcon = rs.Fields("PatrEcon").Testo(),
    };
  };
  PianoLetto piano;
  for (Rs rs = tessarc.Recordset("SELECT Cod, Descrizione, PatrEcon FROM Mastri ORDER BY Cod");
       !rs.Eof(); rs.MoveNext()) {
    piano.mastri.push_back(voce(rs));
  }
  for (Rs rs = tessarc.Recordset("SELECT Cod, Descrizione, CFP, PatrEcon FROM Conti ORDER BY Cod");
       !rs.Eof(); rs.MoveNext()) {
    piano.conti.push_back(voce(rs));
    piano.conti.back().cfp = rs.Fields("CFP").Testo();
  }
  return piano;
}

}  // namespace fenalto::ledger
