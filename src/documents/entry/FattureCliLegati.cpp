// Documents written, corrected and erased together with the open one: the unload of a load's
// components, and the other side of a transfer between warehouses.
#include <algorithm>
#include <utility>

#include "core/session/ImpostazioneAttiva.h"
#include "core/values/Aritmetica.h"
#include "documents/entry/FattureCliInterno.h"

namespace fenalto::documents {
namespace {

Legato LeggiLegato(const Rs& rs) {
  return {{rs.Fields("TipoDoc").Testo(), static_cast<int>(rs.Fields("Anno").Intero()),
           rs.Fields("NumDoc").Intero()},
          static_cast<OrigineDocumento>(rs.Fields("CREATOINAUTOMATICO").Intero()),
          rs.Fields("Dt").Data(),
          rs.Fields("Mag").Testo()};
}

std::vector<Coppia> RiferimentoA(const IdentitaDocumento& origine) {
  return {{"TipoDocOrigine", origine.tipoDoc},
          {"AnnoOrigine", origine.anno},
          {"NumDocOrigine", origine.numDoc}};
}

std::string Estremi(const IdentitaDocumento& documento) {
  return documento.tipoDoc + "/" + std::to_string(documento.numDoc);
}

Rifiuto TipoSparito(const std::string& codice) {
  return {"il tipo documento " + codice + ", da scrivere insieme a questo, non esiste più", ""};
}

std::string InModifica(const Legato& documento, const Detentore& chi) {
  return "il documento " + documento.Nome() + " è in modifica " + chi.Descrizione();
}

/// Condition on rows: of any document but that one.
std::string NonDi(const IdentitaDocumento& documento) {
  return " and (" + sql::Criterio("TipoDoc", "<>", documento.tipoDoc) + " or " +
         sql::Criterio("Anno", "<>", documento.anno) + " or " +
         sql::Criterio("NumDoc", "<>", documento.numDoc) + ")";
}

std::string ComponentiDi(const std::string& prodotto) {
  return "select CodiceRiga, Quantita from Db_r where " + sql::Criterio("Cod", "=", prodotto) +
         " order by Posi";
}

}  // namespace

std::string Legato::Nome() const {
  return identita.tipoDoc + " n. " + std::to_string(identita.numDoc) + " del " + dt.Testo();
}

// --- Reading -------------------------------------------------------------------------------------

void FattureCli::Interno::LeggiLegati() {
  componenti.clear();
  gemello.reset();
  for (Rs rs = tessarc.Recordset("select * from ZFattureCliOrigine where " +
                                 records::Condizione(RiferimentoA(Identita())));
       !rs.Eof(); rs.MoveNext()) {
    const Legato letto = LeggiLegato(rs);
    if (letto.origine == OrigineDocumento::ScaricoComponenti) componenti.push_back(letto);
    if (letto.origine == OrigineDocumento::Trasferimento) gemello = letto;
  }
  if (gemello) testa.Scrivi(kMagDest, gemello->mag);
  const auto origine = static_cast<OrigineDocumento>(N("CREATOINAUTOMATICO"));
  if (origine != OrigineDocumento::Trasferimento) return;
  const Rs prima = TrovaTesta(Origine());
  if (!prima.Eof()) gemello = LeggiLegato(prima);
}

IdentitaDocumento FattureCli::Interno::Origine() const {
  return {T("TipoDocOrigine"), static_cast<int>(N("AnnoOrigine")), N("NumDocOrigine")};
}

void FattureCli::Interno::AvvisaLegati() const {
  if (!gemello) return;
  ambiente.Dialogo().Annuncia(
      (LatoCarico() ? "questo documento è l'altro lato del trasferimento "
                    : "l'altro lato di questo trasferimento è il documento ") +
      gemello->Nome() + ": chi corregge o elimina l'uno corregge o elimina anche l'altro");
}

bool FattureCli::Interno::LatoCarico() const {
  return static_cast<OrigineDocumento>(N("CREATOINAUTOMATICO")) == OrigineDocumento::Trasferimento;
}

// --- Before --------------------------------------------------------------------------------------

std::optional<Rifiuto> FattureCli::Interno::ControllaLegati() {
  for (const std::string& codice : {tipo.tipoDocScaricoDB, tipo.tipoDocTrasferimento}) {
    if (codice.empty() || LeggiTipo(ambiente, codice)) continue;
    return TipoSparito(codice);
  }
  if (tipo.tipoDocTrasferimento.empty() || LatoCarico()) return std::nullopt;
  const std::string destinazione(Rifila(T(kMagDest)));
  if (destinazione.empty()) {
    return Rifiuto{"inserire il codice del magazzino di destinazione del trasferimento", kMagDest};
  }
  if (UgualeTesto(destinazione, Rifila(T("Mag")))) {
    return Rifiuto{"il magazzino di destinazione è lo stesso da scaricare", kMagDest};
  }
  return std::nullopt;
}

bool FattureCli::Interno::BloccaLegati(const std::vector<Legato>& quali) {
  bloccati.clear();
  for (const Legato& uno : quali) {
    bloccati.push_back(BloccaDocumento(ambiente, uno.identita));
    if (bloccati.back()) continue;
    Avviso(InModifica(uno, bloccati.back().Errore()));
    bloccati.clear();
    return false;
  }
  return true;
}

bool FattureCli::Interno::ChiediLegati() {
  rifaComponenti = documento.Nuovo() && !tipo.tipoDocScaricoDB.empty();
  if (documento.Nuovo()) return true;
  std::vector<Legato> quali;
  if (gemello && Cambiato()) {
    if (ambiente.Dialogo().Domanda("con questo documento sarà corretto anche l'altro lato del "
                                   "trasferimento, " +
                                       gemello->Nome() + "\nproseguo ?",
                                   Bottoni::SiNo, Risposta::Si) != Risposta::Si) {
      return false;
    }
    quali.push_back(*gemello);
  }
  if (!tipo.tipoDocScaricoDB.empty() && ConDistinta()) {
    const std::string domanda =
        componenti.empty()
            ? "faccio lo scarico automatico dei componenti ?"
            : "rifaccio lo scarico automatico dei componenti, " + componenti.front().Nome() + " ?";
    rifaComponenti =
        ambiente.Dialogo().Domanda(domanda, Bottoni::SiNo, Risposta::Si) == Risposta::Si;
  } else if (!tipo.tipoDocScaricoDB.empty() && !componenti.empty()) {
    // No product of the load has a bill any more.
    rifaComponenti = ambiente.Dialogo().Conferma(
        "nessun prodotto del carico ha più distinta base: "
        "elimino lo scarico dei componenti, " +
        componenti.front().Nome() + " ?");
  }
  if (rifaComponenti) quali.insert(quali.end(), componenti.begin(), componenti.end());
  return BloccaLegati(quali);
}

bool FattureCli::Interno::Cambiato() const {
  return righe.Modificate() || testa.Modificata();
}

bool FattureCli::Interno::ConDistinta() {
  return std::ranges::any_of(righe.Tutte(), [&](const RigaDocumento& una) {
    return !una.codiceRiga.empty() && ambiente.Esiste("tessarc", "Db_r", {{"Cod", una.codiceRiga}});
  });
}

bool FattureCli::Interno::ChiediEliminazioneLegati() {
  eliminaComponenti = false;
  std::vector<Legato> quali;
  if (gemello) {
    if (ambiente.Dialogo().Domanda("con questo documento sarà eliminato anche l'altro lato del "
                                   "trasferimento, " +
                                       gemello->Nome() + "\nproseguo ?",
                                   Bottoni::SiNo, Risposta::No) != Risposta::Si) {
      return false;
    }
    quali.push_back(*gemello);
  }
  if (!componenti.empty()) {
    const Risposta risposta = ambiente.Dialogo().Domanda(
        "elimino anche lo scarico automatico dei componenti, " + componenti.front().Nome() + " ?",
        Bottoni::SiNoAnnulla, Risposta::Si);
    if (risposta == Risposta::Annulla) return false;
    eliminaComponenti = risposta == Risposta::Si;
    quali.insert(quali.end(), componenti.begin(), componenti.end());
  }
  return BloccaLegati(quali);
}

bool FattureCli::Interno::ConComponenti(std::int64_t nl1) {
  std::string condizione = sql::Criterio("NL3", "=", nl1);
  if (eliminaComponenti) {
    for (const Legato& uno : componenti) {
      condizione += NonDi(uno.identita);
    }
  }
  return !tessarc.Singolo("select 1 from ZRigheComponenti where " + condizione).Nullo();
}

// --- Components ----------------------------------------------------------------------------------

Importo FattureCli::Interno::CostoComponente(const warehouse::Prodotto& componente) {
  const warehouse::Costi& suoi = CostiDi(componente.cod);
  const Importo costo = ImpostazioneAttiva(ambiente, "DbCostoMedio") ? suoi.medio : suoi.ultimo;
  return costo.Zero() ? componente.costoDigitato : costo;
}

std::vector<RigaDocumento> FattureCli::Interno::RigheComponenti(
    const std::vector<RigaDocumento>& caricate) {
  std::vector<RigaDocumento> scaricate;
  for (const RigaDocumento& caricata : caricate) {
    if (caricata.codiceRiga.empty() || caricata.quantita.Zero()) continue;
    for (Rs rs = tessarc.Recordset(ComponentiDi(caricata.codiceRiga)); !rs.Eof(); rs.MoveNext()) {
      RigaDocumento una;
      una.posi = static_cast<std::int64_t>(scaricate.size() + 1) * kPassoPosi;
      una.codiceRiga = rs.Fields(0).Testo();
      una.quantita = caricata.quantita.Per(rs.Fields(1).Importo());
      una.nl3 = caricata.nl1;
      if (const auto componente = warehouse::LeggiProdotto(ambiente, una.codiceRiga)) {
        una.descrizione = componente->descrizione;
        una.um = componente->um;
        una.prezzo = una.costo = CostoComponente(*componente);
      }
      una.quantitaA = una.quantita;
      una.prezzoA = una.prezzo;
      una.importo = ImportoDi(una, regola);
      scaricate.push_back(std::move(una));
    }
  }
  return scaricate;
}

void FattureCli::Interno::ScriviComponenti(Scritta& scritta) {
  if (!rifaComponenti) return;
  const IdentitaDocumento carico{tipo.cod, anno, scritta.numDoc};
  costi.clear();  // the load itself counts
  std::vector<RigaDocumento> scaricate = RigheComponenti(scritta.righe);
  const auto tipoScarico = LeggiTipo(ambiente, tipo.tipoDocScaricoDB);
  // One unload a load: further ones come from another type that it once had.
  std::vector<Legato> inPiu = componenti;
  const auto stesso = std::ranges::find_if(inPiu, [&](const Legato& uno) {
    return UgualeTesto(uno.identita.tipoDoc, tipo.tipoDocScaricoDB);
  });
  std::optional<Legato> rifatto;
  if (stesso != inPiu.end() && !scaricate.empty()) {
    rifatto = *stesso;
    inPiu.erase(stesso);
  }
  for (const Legato& uno : inPiu) {
    CancellaDocumento(ambiente, uno.identita.tipoDoc, uno.identita.anno, uno.identita.numDoc);
  }
  if (scaricate.empty() || !tipoScarico) return;
  DocumentoDaScrivere nuovo;
  nuovo.tipo = *tipoScarico;
  nuovo.anno = anno;
  nuovo.numDoc = rifatto ? rifatto->identita.numDoc : 0;
  nuovo.dt = D("Dt");
  nuovo.cliFor = tipoScarico->cliFor;
  if (nuovo.cliFor.empty() && UgualeTesto(tipoScarico->cfp, T("CFP"))) nuovo.cliFor = T("CliFor");
  nuovo.mag = tipoScarico->mag;
  nuovo.numDocCarico = Estremi(carico);
  nuovo.dtDocCarico = D("Dt");
  nuovo.origine = OrigineDocumento::ScaricoComponenti;
  nuovo.tipoDocOrigine = carico.tipoDoc;
  nuovo.annoOrigine = carico.anno;
  nuovo.numDocOrigine = carico.numDoc;
  nuovo.righe = std::move(scaricate);
  const std::int64_t numero = rifatto ? RiscriviDocumento(ambiente, std::move(nuovo))
                                      : ScriviDocumento(ambiente, std::move(nuovo));
  scritta.annunci.push_back(tipoScarico->descrizione + " n. " + std::to_string(numero) +
                            (rifatto ? " rifatto" : " effettuato"));
}

// --- Transfer ------------------------------------------------------------------------------------

std::vector<RigaDocumento> FattureCli::Interno::RigheGemelle(
    const std::vector<RigaDocumento>& mie) {
  std::vector<RigaDocumento> sue;
  if (gemello) sue = LeggiRighe(ambiente, gemello->identita);
  std::vector<RigaDocumento> fatte;
  fatte.reserve(mie.size());
  auto sua = sue.begin();
  for (const RigaDocumento& mia : mie) {
    while (sua != sue.end() && sua->posi < mia.posi) ++sua;
    const bool stessa =
        sua != sue.end() && sua->posi == mia.posi && UgualeTesto(sua->codiceRiga, mia.codiceRiga);
    RigaDocumento una = stessa ? *sua : RigaDocumento{};
    una.posi = mia.posi;
    una.codiceRiga = mia.codiceRiga;
    una.descrizione = mia.descrizione;
    una.um = mia.um;
    una.quantita = una.quantitaA = mia.quantita;
    una.campo1 = mia.campo1;
    una.campo2 = mia.campo2;
    if (LatoCarico()) {
      if (!stessa) una.costo = PrezzoNetto(mia.prezzo, mia.sc1, mia.sc2, mia.sc3);
    } else if (mia.prezzo.Zero()) {
      // Goods that change place are worth there what they cost here.
      una.prezzo = mia.costo;
      una.sc1 = una.sc2 = una.sc3 = Importo();
    } else {
      una.prezzo = mia.prezzo;
      una.sc1 = mia.sc1;
      una.sc2 = mia.sc2;
      una.sc3 = mia.sc3;
    }
    una.prezzoA = una.prezzo;
    una.importo = ImportoDi(una, regola);
    fatte.push_back(std::move(una));
  }
  return fatte;
}

void FattureCli::Interno::ScriviGemello(Scritta& scritta) {
  const bool nuovoGemello = !gemello && !tipo.tipoDocTrasferimento.empty() && !LatoCarico();
  if (!nuovoGemello && (!gemello || !Cambiato())) return;
  const auto suoTipo =
      LeggiTipo(ambiente, gemello ? gemello->identita.tipoDoc : tipo.tipoDocTrasferimento);
  if (!suoTipo) return;
  const IdentitaDocumento mia{tipo.cod, anno, scritta.numDoc};
  DocumentoDaScrivere suo;
  suo.tipo = *suoTipo;
  suo.anno = gemello ? gemello->identita.anno : anno;
  suo.numDoc = gemello ? gemello->identita.numDoc : 0;
  suo.dt = D("Dt");
  suo.cliFor = UgualeTesto(suoTipo->cfp, T("CFP")) ? T("CliFor") : suoTipo->cliFor;
  suo.righe = RigheGemelle(scritta.righe);
  if (LatoCarico()) {
    suo.mag = gemello->mag;
    RiscriviDocumento(ambiente, std::move(suo));
    return;
  }
  suo.mag = std::string(Rifila(T(kMagDest)));
  suo.numDocCarico = Estremi(mia);
  suo.dtDocCarico = D("Dt");
  suo.origine = OrigineDocumento::Trasferimento;
  suo.tipoDocOrigine = mia.tipoDoc;
  suo.annoOrigine = mia.anno;
  suo.numDocOrigine = mia.numDoc;
  const std::int64_t numero = gemello ? RiscriviDocumento(ambiente, std::move(suo))
                                      : ScriviDocumento(ambiente, std::move(suo));
  scritta.annunci.push_back(suoTipo->descrizione + " n. " + std::to_string(numero) +
                            (gemello ? " corretto" : " memorizzato"));
}

void FattureCli::Interno::CancellaLegati() {
  const auto cancella = [&](const Legato& uno) {
    CancellaDocumento(ambiente, uno.identita.tipoDoc, uno.identita.anno, uno.identita.numDoc);
  };
  if (gemello) cancella(*gemello);
  for (const Legato& uno : componenti) {
    if (eliminaComponenti) {
      cancella(uno);
    } else {
      // Its number may come again: what stays isn't of another load.
      records::AggiornaRighe(tessarc, kTestaDocumenti,
                             {{"CREATOINAUTOMATICO", 0},
                              {"TipoDocOrigine", ""},
                              {"AnnoOrigine", 0},
                              {"NumDocOrigine", 0}},
                             uno.identita.Chiave());
    }
  }
}

}  // namespace fenalto::documents
