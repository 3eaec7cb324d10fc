#include "core/archives/Riferimenti.h"

#include <algorithm>
#include <vector>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

// Pieces of messages, joined when compiled.
#define FENALTO_IN_QUANTO "non si può variare o eliminare il codice in quanto ci sono "

namespace fenalto::archives {

namespace {

constexpr const char* kC = "tessarc";
constexpr const char* kS = "scadenzario";

constexpr const char* kClientiConto = FENALTO_IN_QUANTO "clienti che appartengono a questo conto";
constexpr const char* kFornitoriConto =
    FENALTO_IN_QUANTO "fornitori che appartengono a questo conto";
constexpr const char* kRegistriConto = FENALTO_IN_QUANTO "regisstri iva collegati a questo conto";
constexpr const char* kPagamentoConto =
    FENALTO_IN_QUANTO "codici pagamento collegati a questo conto";
constexpr const char* kMovimenti = FENALTO_IN_QUANTO "movimenti contabili che lo usano";
constexpr const char* kArticoli = FENALTO_IN_QUANTO "registrazioni che lo usano";
constexpr const char* kClienti = FENALTO_IN_QUANTO "clienti che lo usano";
constexpr const char* kFornitori = FENALTO_IN_QUANTO "fornitori che lo usano";
constexpr const char* kRegistri = FENALTO_IN_QUANTO "registri iva che lo usano";
constexpr const char* kPagamenti = FENALTO_IN_QUANTO "codici pagamento che lo usano";
constexpr const char* kRitenute = FENALTO_IN_QUANTO "ritenute che lo usano";
constexpr const char* kScadenze = FENALTO_IN_QUANTO "scadenze che lo usano";
constexpr const char* kDocumenti = FENALTO_IN_QUANTO "documenti che lo usano";
constexpr const char* kRigheDocumenti = FENALTO_IN_QUANTO "righe di documenti che lo usano";
constexpr const char* kTipiDocumento = FENALTO_IN_QUANTO "tipi documento che lo usano";
constexpr const char* kMovimentiMag = FENALTO_IN_QUANTO "movimenti di magazzino che lo usano";
constexpr const char* kCespiti = FENALTO_IN_QUANTO "cespiti che lo usano";
constexpr const char* kCategorieCespiti = FENALTO_IN_QUANTO "categorie di cespiti che lo usano";
constexpr const char* kOrdini = FENALTO_IN_QUANTO "ordini che lo usano";
constexpr const char* kCommesse = FENALTO_IN_QUANTO "commesse che lo usano";
constexpr const char* kProdotti = FENALTO_IN_QUANTO "prodotti che lo usano";
constexpr const char* kListini = FENALTO_IN_QUANTO "listini che lo usano";
constexpr const char* kDistinte = FENALTO_IN_QUANTO "distinte base che lo usano";
constexpr const char* kCausaleMag =
    "il codice non si può variare perchè esistono già movimenti magazzino con questa causale o "
    "sono previsti tipi documento";
constexpr const char* kContropClienti =
    FENALTO_IN_QUANTO "clienti con questo conto come contropartita delle fatture";
constexpr const char* kContropFornitori =
    FENALTO_IN_QUANTO "fornitori con questo conto come contropartita delle fatture";

// In the order in which uses are told.
constexpr Riferimento kTavola[] = {
    {"Conti", kC, "Clienti", "Conto", "", kClientiConto},
    {"Conti", kC, "Fornitori", "Conto", "", kFornitoriConto},
    {"Conti", kC, "RegistriIva", "Conto", "", kRegistriConto},
    {"Conti", kC, "RegistriIva", "ContoCassa", "", kRegistriConto},
    {"Conti", kC, "RegistriIva", "ContoRicaviCorrisp", "", kRegistriConto},
    {"Conti", kC, "Pagamento", "Conto", "", kPagamentoConto},
    {"Conti", kC, "Movimenti", "Conto", "CFP='P'", kMovimenti},
    {"Conti", kC, "Movimenti", "ContoControp", "CFPControp='P'", kMovimenti},
    {"Conti", kC, "Articoli", "Conto", "CFP='P'", kArticoli},
    {"Conti", kC, "Articoli", "ContoA", "CfpA='P'", kArticoli},
    {"Conti", kC, "Clienti", "ContropFatture", "", kContropClienti},
    {"Conti", kC, "Fornitori", "ContropFatture", "", kContropFornitori},
    {"Conti", kC, "Ritenute", "Conto", "", kRitenute},
    {"Conti", kS, "Scadenze", "Conto", "CFP='P'", kScadenze},
    {"Conti", kC, "FattureCli_r", "Conto", "", kRigheDocumenti},
    {"Conti", kC, "TipiFattureCli", "Conto", "", kTipiDocumento},

    {"Causali", kC, "Movimenti", "Causale", "", kMovimenti},
    {"Causali", kC, "RegistriIva", "CauGiroCorrisp", "", kRegistri},
    {"Causali", kC, "Pagamento", "Causale", "", kPagamenti},
    {"Causali", kC, "Ritenute", "Causale", "", kRitenute},

    {"CodiciIva", kC, "Movimenti", "CodIva", "", kMovimenti},
    {"CodiciIva", kC, "RegistriIva", "CodIva", "", kRegistri},
    {"CodiciIva", kC, "Clienti", "CodIva", "", kClienti},
    {"CodiciIva", kC, "Clienti", "EsenzioneIva", "", kClienti},
    {"CodiciIva", kC, "Fornitori", "CodIva", "", kFornitori},
    {"CodiciIva", kC, "FattureCli_r", "CodIva", "", kRigheDocumenti},
    {"CodiciIva", kC, "TipiFattureCli", "CodIva", "", kTipiDocumento},

    {"RegistriIva", kC, "Articoli", "Riva", "", kArticoli},
    {"RegistriIva", kS, "Scadenze", "Riva", "", kScadenze},
    {"RegistriIva", kC, "FattureCli", "Riva", "", kDocumenti},
    {"RegistriIva", kC, "TipiFattureCli", "Riva", "", kTipiDocumento},

    {"Categorie", kC, "Movimenti", "Categoria", "", kMovimenti},
    {"Categorie", kC, "Clienti", "Categoria", "", kClienti},
    {"Categorie", kC, "Fornitori", "Categoria", "", kFornitori},

    {"Ritenute", kC, "Clienti", "Ritenuta", "", kClienti},
    {"Ritenute", kC, "FattureCli", "RaCod", "", kDocumenti},
    {"Ritenute", kC, "FattureCli", "RaCod2", "", kDocumenti},
    {"Agenti", kC, "Clienti", "Agente", "", kClienti},
    {"Agenti", kC, "FattureCli", "Agente", "", kDocumenti},
    {"Vettori", kC, "Clienti", "Vettore", "", kClienti},
    {"Vettori", kC, "FattureCli", "CodiceVettore", "", kDocumenti},
    {"CodiciAspetto", kC, "FattureCli", "CodAspetto", "", kDocumenti},
    {"CodiciAspetto", kC, "TipiFattureCli", "CodAspetto", "", kTipiDocumento},
    {"CodiciPorto", kC, "FattureCli", "Porto", "", kDocumenti},
    {"CodiciPorto", kC, "TipiFattureCli", "Porto", "", kTipiDocumento},
    {"CodiciCausaliTrasporto", kC, "FattureCli", "CodiceCausaleTrasporto", "", kDocumenti},
    {"CodiciCausaliTrasporto", kC, "TipiFattureCli", "CodiceCausaleTrasporto", "", kTipiDocumento},

    {"CausaliMag", kC, "FattureCli_r", "CausaleMag", "", kCausaleMag},
    {"CausaliMag", kC, "TipiFattureCli", "CausaleMag", "", kCausaleMag},
    {"Magazzini", kC, "FattureCli_r", "Mag", "", kMovimentiMag},
    {"Magazzini", kC, "TipiFattureCli", "Mag", "", kTipiDocumento},

    {"Pagamento", kC, "Clienti", "Pagamento", "", kClienti},
    {"Pagamento", kC, "Fornitori", "Pagamento", "", kFornitori},
    {"Pagamento", kC, "Articoli", "Pagamento", "", kArticoli},
    {"Pagamento", kS, "Scadenze", "Pagamento", "", kScadenze},
    {"Pagamento", kC, "Pagamento", "CodPagIva", "", kPagamenti},
    {"Pagamento", kC, "FattureCli", "Pagamento", "", kDocumenti},

    {"Clienti", kC, "Movimenti", "Conto", "CFP='C'", kMovimenti},
    {"Clienti", kC, "Movimenti", "ContoControp", "CFPControp='C'", kMovimenti},
    {"Clienti", kC, "Articoli", "Conto", "CFP='C'", kArticoli},
    {"Clienti", kC, "Articoli", "ContoA", "CfpA='C'", kArticoli},
    {"Clienti", kS, "Scadenze", "Conto", "CFP='C'", kScadenze},
    {"Clienti", kC, "FattureCli", "CliFor", "CFP='C'", kDocumenti},
    {"Clienti", kC, "TipiFattureCli", "CliFor", "CFP='C'", kTipiDocumento},
    {"Fornitori", kC, "Movimenti", "Conto", "CFP='F'", kMovimenti},
    {"Fornitori", kC, "Movimenti", "ContoControp", "CFPControp='F'", kMovimenti},
    {"Fornitori", kC, "Articoli", "Conto", "CFP='F'", kArticoli},
    {"Fornitori", kC, "Articoli", "ContoA", "CfpA='F'", kArticoli},
    {"Fornitori", kS, "Scadenze", "Conto", "CFP='F'", kScadenze},
    {"Fornitori", kC, "FattureCli", "CliFor", "CFP='F'", kDocumenti},
    {"Fornitori", kC, "TipiFattureCli", "CliFor", "CFP='F'", kTipiDocumento},

    {"CategorieCespiti", kC, "Cespiti", "Cat", "", kCespiti},
    {"CategorieCespiti", kC, "MovCesp_r", "Cat", "", kCespiti},
    {"Conti", kC, "CategorieCespiti", "ContoAmm", "", kCategorieCespiti},
    {"Conti", kC, "CategorieCespiti", "ContoFondo", "", kCategorieCespiti},

    {"Banche", kS, "Scadenze", "BancaPresentaz", "", kScadenze},

    {"CodiciRiga", kC, "FattureCli_r", "CodiceRiga", "", kRigheDocumenti},
    {"CodiciRiga", kC, "OrdiniCli_r", "CodiceRiga", "", kOrdini},
    {"CodiciRiga", kC, "OrdiniFor_r", "CodiceRiga", "", kOrdini},
    {"CodiciRiga", kC, "Listini_r", "CodiceRiga", "", kListini, true},
    {"CodiciRiga", kC, "Commesse_r", "CodiceRiga", "", kCommesse},
    {"CodiciRiga", kC, "Clienti", "SpRiBa", "", kClienti},
    {"CodiciRiga", kC, "Db_r", "CodiceRiga", "", kDistinte, true},
    {"CodiciRiga", kC, "Db_r", "Cod", "", kDistinte, true},
    {"CodiciRiga", kC, "prodottiFor_r", "Cod", "", kProdotti, true},

    {"TipiFattureCli", kC, "FattureCli", "TipoDoc", "", kDocumenti},
    {"TipiFattureCli", kC, "FattureCli_r", "TipoDoc", "", kRigheDocumenti},
    {"TipiFattureCli", kC, "TipiFattureCli", "TipoDocScaricoDB", "", kTipiDocumento},
    {"TipiFattureCli", kC, "TipiFattureCli", "TipoDocTrasferimento", "", kTipiDocumento},
    {"TipiFattureCli", kC, "FattureCli", "TipoDocOrigine", "", kDocumenti},
    {"Listini", kC, "Listini_r", "Cod", "", kListini, true},
    {"Listini", kC, "Clienti", "listino", "", kClienti},

    {"CategorieMag", kC, "CodiciRiga", "CategoriaMag", "", kProdotti},
    {"CategorieMag2", kC, "CodiciRiga", "CategoriaMag2", "", kProdotti},
    {"GruppiMag", kC, "CodiciRiga", "GruppoMag", "", kProdotti},
    {"GruppiMag2", kC, "CodiciRiga", "GruppoMag2", "", kProdotti},
    {"CodiciIva", kC, "CodiciRiga", "CodIva", "", kProdotti},
    {"CodiciIva", kC, "OrdiniCli_r", "CodIva", "", kOrdini},
    {"Conti", kC, "CodiciRiga", "Conto", "", kProdotti},
    {"Conti", kC, "OrdiniCli_r", "Conto", "", kOrdini},
    {"Magazzini", kC, "FattureCli", "Mag", "", kDocumenti},
    {"CausaliMag", kC, "FattureCli", "CausaleMag", "", kCausaleMag},
    {"Pagamento", kC, "OrdiniCli", "Pagamento", "", kOrdini},
    {"Pagamento", kC, "OrdiniFor", "Pagamento", "", kOrdini},
    {"Agenti", kC, "OrdiniCli", "Agente", "", kOrdini},
    {"Clienti", kC, "FattureCli_r", "CliFor", "CFP='C'", kRigheDocumenti},
    {"Clienti", kC, "OrdiniCli", "Cliente", "", kOrdini},
    {"Clienti", kC, "OrdiniCli_r", "CLIENTE", "", kOrdini},
    {"Clienti", kC, "Commesse", "Cliente", "", kCommesse},
    {"Clienti", kC, "Commesse_r", "Cliente", "", kCommesse},
    {"Fornitori", kC, "FattureCli_r", "CliFor", "CFP='F'", kRigheDocumenti},
    {"Fornitori", kC, "OrdiniFor", "Fornitore", "", kOrdini},
    {"Fornitori", kC, "OrdiniFor_r", "FORNITORE", "", kOrdini},
    {"Fornitori", kC, "prodottiFor_r", "Fornitore", "", kProdotti, true},
};

/// " where CodiceRiga='X1' and CFP='C'"
std::string Dove(const Riferimento& r, std::string_view codice) {
  std::string dove = " where " + sql::Criterio(r.campo, "=", codice);
  if (*r.condizione != '\0') dove.append(" and ").append(r.condizione);
  return dove;
}

/// The pieces in which the rows of a reference are walked, as conditions: a year each where the
/// table has years, so that a code of a million rows can be stopped on the way.
std::vector<std::string> Pezzi(Archivio& archivio, const Riferimento& r, const std::string& dove) {
  const auto* tabella = archivio.Catalogo().Tabella(r.tabella);
  if (tabella == nullptr || tabella->Colonna("Anno") == nullptr) return {""};
  std::vector<std::string> pezzi;
  for (Rs anni = archivio.Recordset("select Anno from " + std::string(r.tabella) + dove +
                                    " group by Anno");
       !anni.Eof(); anni.MoveNext()) {
    pezzi.push_back(" and " + sql::Criterio("Anno", "=", anni.Fields(0)));
  }
  return pezzi;
}

/// Does an action on all rows that name a code, in the order of the table.
bool Percorri(Ambiente& ambiente, std::string_view archivio, std::string_view codice,
              const PassoRiferimenti& passo,
              const std::function<std::string(const Riferimento&)>& azione) {
  if (codice.empty()) return true;
  std::int64_t fatte = 0;
  for (const Riferimento& r : kTavola) {
    if (!UgualeTesto(r.archivio, archivio)) continue;
    Archivio& dati = ambiente.ArchivioDi(r.chiave);
    const std::string dove = Dove(r, codice);
    for (const std::string& pezzo : passo ? Pezzi(dati, r, dove) : std::vector<std::string>{""}) {
      std::string sql = azione(r);
      sql.append(dove).append(pezzo);
      fatte += dati.Esegui(sql);
      if (passo && !passo(fatte)) return false;
    }
  }
  return true;
}

}  // namespace

std::span<const Riferimento> TavolaRiferimenti() {
  return kTavola;
}

std::optional<std::string> CodiceUsato(Ambiente& ambiente, std::string_view archivio,
                                       std::string_view codice,
                                       std::span<const std::string> proprie) {
  if (codice.empty()) return std::nullopt;  // an empty field refers to nothing
  for (const Riferimento& r : kTavola) {
    if (!UgualeTesto(r.archivio, archivio)) continue;
    // Its own rows are its own by their key alone.
    const bool chiave = UgualeTesto(r.campo, "Cod");
    if (chiave && std::ranges::any_of(proprie, [&](const std::string& tabella) {
          return UgualeTesto(tabella, r.tabella);
        })) {
      continue;
    }
    std::string sql = "select top 1 1 from " + std::string(r.tabella) + Dove(r, codice);
    // A code that names itself may change: the reference goes with it.
    if (UgualeTesto(r.tabella, archivio)) sql += " and " + sql::Criterio("Cod", "<>", codice);
    if (!ambiente.ArchivioDi(r.chiave).Singolo(sql).Nullo()) return r.messaggio;
  }
  return std::nullopt;
}

std::int64_t ContaRiferimenti(Ambiente& ambiente, std::string_view archivio,
                              std::string_view codice) {
  std::int64_t righe = 0;
  for (const Riferimento& r : kTavola) {
    if (codice.empty() || !UgualeTesto(r.archivio, archivio)) continue;
    righe += ambiente.ArchivioDi(r.chiave)
                 .Singolo("select Count(*) from " + std::string(r.tabella) + Dove(r, codice))
                 .Intero();
  }
  return righe;
}

bool PortaCodice(Ambiente& ambiente, std::string_view archivio, std::string_view codicePrima,
                 std::string_view codice, const PassoRiferimenti& passo) {
  return Percorri(ambiente, archivio, codicePrima, passo, [codice](const Riferimento& r) {
    return "update " + std::string(r.tabella) + " set " + r.campo + "=" + sql::LetteraleSql(codice);
  });
}

bool StaccaCodice(Ambiente& ambiente, std::string_view archivio, std::string_view codice,
                  const PassoRiferimenti& passo) {
  return Percorri(ambiente, archivio, codice, passo, [](const Riferimento& r) {
    return r.cade ? "delete * from " + std::string(r.tabella)
                  : "update " + std::string(r.tabella) + " set " + r.campo + "=''";
  });
}

}  // namespace fenalto::archives

#undef FENALTO_IN_QUANTO
