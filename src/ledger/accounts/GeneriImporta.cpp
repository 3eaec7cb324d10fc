#include "ledger/accounts/GeneriImporta.h"

#include <string>
#include <utility>

#include "core/sql/Criterio.h"
#include "ledger/accounts/CodiceConto.h"
#include "ledger/accounts/ContiClientiFornitori.h"

namespace fenalto::ledger {
namespace {

using Motivi = std::vector<archives::MotivoImporta>;

constexpr std::size_t kLunghezzaConto = 10;  // of the code, as the archive takes it
constexpr std::size_t kLunghezzaMeta = 6;    // of a master's code and of a sub-code

// --- Chart of accounts ---------------------------------------------------------------------------

/// Master of an account's code: up to the first point that follows a master's code. Empty when no
/// master fits.
std::string MastroDi(archives::ContestoImporta& contesto, const std::string& codice) {
  for (std::size_t punto = codice.find('.'); punto != std::string::npos;
       punto = codice.find('.', punto + 1)) {
    const std::string mastro = codice.substr(0, punto);
    if (punto + 1 < codice.size() && contesto.Esiste("Mastri", mastro)) return mastro;
  }
  return {};
}

/// An empty cell isn't a class or a nature: an existing record keeps its own.
void TieneSeVuoto(archives::ContestoImporta& contesto, archives::RigaImporta& riga,
                  const char* campo) {
  if (riga.nuova || !riga.Ha(campo) || !riga.Testo(campo).empty()) return;
  riga.Scrivi(campo, contesto.Campo(riga.tabella, riga.Testo("Cod"), campo));
}

Motivi ControllaMastro(archives::ContestoImporta& contesto, archives::RigaImporta& riga) {
  const std::string codice = riga.Testo("Cod");
  if (codice.size() > kLunghezzaMeta) return {{"Cod", "codice di mastro oltre i 6 caratteri"}};
  TieneSeVuoto(contesto, riga, "PatrEcon");
  if (riga.nuova && riga.Testo("PatrEcon").empty()) {
    return {{"PatrEcon", "manca Patrimoniale/Economico del mastro"}};
  }
  if (riga.nuova || !riga.Ha("PatrEcon")) return {};
  const bool cambiato = contesto.Campo("Mastri", codice, "PatrEcon") != riga.Leggi("PatrEcon");
  if (cambiato && HaConti(contesto.Sessione(), codice)) {
    return {{"PatrEcon", "il mastro ha già conti: Patrimoniale/Economico non si cambia da file"}};
  }
  return {};
}

Motivi ControllaConto(archives::ContestoImporta& contesto, archives::RigaImporta& riga) {
  const std::string codice = riga.Testo("Cod");
  const std::size_t punto = codice.find('.');
  if (punto == 0 || punto + 1 == codice.size()) {
    return {{"Cod", "manca mastro o conto: il codice è mastro, punto, conto (170.001)"}};
  }
  const std::string mastro = MastroDi(contesto, codice);
  if (mastro.empty()) {
    return {{"Cod", "il mastro " + codice.substr(0, punto) +
                        " non esiste e non è fra le righe buone del file"}};
  }
  TieneSeVuoto(contesto, riga, "CFP");
  const Valore patrEcon = contesto.Campo("Mastri", mastro, "PatrEcon");
  if (riga.Testo("PatrEcon").empty()) riga.Scrivi("PatrEcon", patrEcon);
  if (riga.Leggi("PatrEcon") != patrEcon) {
    return {{"PatrEcon", "Patrimoniale/Economico : su mastro diverso da conto"}};
  }
  if (riga.nuova) {
    if (riga.Testo("CFP").empty()) riga.Scrivi("CFP", "P");
  } else if (riga.Ha("CFP") && contesto.Campo("Conti", codice, "CFP") != riga.Leggi("CFP")) {
    return {{"CFP", "la classe di un conto che esiste non si cambia da file"}};
  }
  return {};
}

/// What the whole record is after the write: a file may give some fields alone.
void TieneElencoConti(Ambiente& ambiente, const archives::RigaImporta& riga) {
  if (riga.tabella != "Conti") return;
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const Rs conto = tessarc.Recordset("select Cod, CFP, Descrizione from Conti where " +
                                     sql::Criterio("Cod", "=", riga.Leggi("Cod")));
  if (conto.Fields("CFP") != Valore("P")) return;
  AggiungiVoce(tessarc,
               {conto.Fields("Cod").Testo(), "P", conto.Fields("Descrizione").Testo(), ""});
}

archives::GenereImporta GenerePianoDeiConti() {
  archives::GenereImporta conti;
  conti.nome = "Conti";
  conti.titolo = "piano dei conti";
  conti.tabelle = {"Mastri", "Conti"};
  conti.campi = {
      {.nome = "Cod",
       .didascalia = "Codice",
       .sinonimi = {"Conto", "Codice conto", "Cod. conto", "Sottoconto", "Numero conto", "Code"},
       .obbligatorio = true,
       .lunghezza = kLunghezzaConto},
      {.nome = "Descrizione",
       .didascalia = "Descrizione",
       .sinonimi = {"Descrizione conto", "Denominazione", "Nome", "Nome conto", "Descr"},
       .obbligatorio = true},
      {.nome = "CFP",
       .didascalia = "Conto, clienti, fornitori (P C F)",
       .sinonimi = {"C F P", "Classe", "Tipo conto", "Cliente/Fornitore"},
       .lunghezza = 30,
       .ammessi = {{"P", {"conto", "piano", "generico"}},
                   {"C", {"cliente", "clienti", "riepilogativo clienti"}},
                   {"F", {"fornitore", "fornitori", "riepilogativo fornitori"}}}},
      {.nome = "PatrEcon",
       .didascalia = "Patrimoniale/Economico",
       .sinonimi = {"Patr/Econ", "P/E", "Natura", "Tipo", "Sezione", "Tipo bilancio"},
       .lunghezza = 30,
       .ammessi = {{"P", {"patrimoniale", "stato patrimoniale", "patr", "sp"}},
                   {"E", {"economico", "conto economico", "econ", "ce"}}}},
      {.nome = "ImportoSitAziendale",
       .didascalia = "Rettifica di bilancio",
       .sinonimi = {"Rettifica", "Importo rettifica"}},
      {.nome = "Cespite", .didascalia = "Bene ammortizzabile", .sinonimi = {"Ammortizzabile"}}};
  conti.tabellaDi = [](const std::string& codice) {
    return codice.find('.') == std::string::npos ? "Mastri" : "Conti";
  };
  conti.controlla = [](archives::ContestoImporta& contesto, archives::RigaImporta& riga) {
    return riga.tabella == "Mastri" ? ControllaMastro(contesto, riga)
                                    : ControllaConto(contesto, riga);
  };
  conti.conScrittura = TieneElencoConti;
  return conti;
}

}  // namespace

std::vector<archives::GenereImporta> GeneriImportaContabili() {
  return {GenerePianoDeiConti(), GenereParti("Clienti"), GenereParti("Fornitori")};
}

}  // namespace fenalto::ledger
