// Confirming a document: one transaction for head, rows and what follows from them; what is told
// after.
#include <algorithm>
#include <utility>

#include "core/records/Conferma.h"
#include "core/session/ImpostazioneAttiva.h"
#include "documents/entry/FattureCliInterno.h"
#include "duedates/schedules/TestoScadenze.h"

namespace fenalto::documents {
namespace {

/// Told when what a row fulfils isn't there to be marked.
std::string NonTrovato(const char* cosa, std::int64_t numero, std::int64_t posi,
                       const char* segno) {
  return std::string("attenzione : non trovo più ") + cosa + " " + std::to_string(numero) +
         " posi " + std::to_string(posi) + "\r\nper memorizzare " + segno + "=vero";
}

}  // namespace

// --- Before --------------------------------------------------------------------------------------

bool FattureCli::Interno::ChiediSpeseIncasso() {
  if (!documento.Nuovo() || speseChieste || !tipo.Fatturazione() || !DiClienti()) return false;
  const std::string codice = NzStr(DellaParte("SpRiBa"));
  if (codice.empty()) return false;
  speseChieste = true;
  const bool inserisce = ambiente.Dialogo().Domanda("inserisco le spese incasso riba",
                                                    Bottoni::SiNo, Risposta::Si) == Risposta::Si;
  const auto prodotto = inserisce ? warehouse::LeggiProdotto(ambiente, codice) : std::nullopt;
  if (!prodotto) {
    if (inserisce) Avviso("il prodotto " + codice + " delle spese incasso riba non esiste");
    return inserisce;
  }
  RigaDocumento spese = RigaVuota(righe.ProssimaPosi(kPassoPosi));
  spese.codiceRiga = prodotto->cod;
  spese.descrizione = prodotto->descrizione;
  spese.um = prodotto->um;
  spese.prezzo = prodotto->prezzo;
  spese.conto = prodotto->conto;
  spese.codIva = prodotto->codIva;
  spese.quantita = Importo::DaUnita(1);
  spese.importo = ImportoDi(spese, regola);
  Accetta(righe.Con(spese));
  return true;
}

void FattureCli::Interno::RigeneraScadPag() {
  if (!tipo.Fatturazione() || !ImpostazioneAttiva(ambiente, "ScadenzePagamento")) return;
  std::vector<std::string> avvisi;
  duedates::RichiestaScadenze richiesta;
  richiesta.cfp = T("CFP");
  richiesta.conto = T("CliFor");
  richiesta.codPag = T("Pagamento");
  richiesta.data = D("Dt");
  richiesta.importo = somme.vivi.totFat - I("RaImporto") - I("RaImporto2");
  richiesta.iva = somme.vivi.totIva;
  richiesta.anno = anno;
  testa.Scrivi("ScadPag",
               duedates::TestoScadenze(duedates::RateDocumento(ambiente, richiesta, avvisi)));
  for (const std::string& avviso : avvisi) Avviso(avviso);
}

// --- Writing -------------------------------------------------------------------------------------

std::vector<Coppia> FattureCli::Interno::Copiate() const {
  std::vector<Coppia> copiate;
  for (const char* campo :
       {"Dt", "CliFor", "CFP", "DtDocCarico", "NumDocCarico", "CausaleMag", "CS", "Mag"}) {
    copiate.emplace_back(campo, testa.Leggi(campo));
  }
  return copiate;
}

void FattureCli::Interno::ScriviTesta(Scritta& scritta) {
  std::vector<Coppia> campi = testa.Campi();
  for (auto& [campo, valore] : campi) {
    if (UgualeTesto(campo, "NumDoc")) valore = scritta.numDoc;
  }
  if (documento.Nuovo()) {
    scritta.id = tessarc.Inserisci(kTestaDocumenti, campi);
    return;
  }
  scritta.id = idRecord;
  if (records::AggiornaRighe(tessarc, kTestaDocumenti, campi, {{"ID", idRecord}}) == 0) {
    throw ErroreArchivio(ErroreArchivio::Causa::Mancante,
                         "il documento n. " + std::to_string(numeroRecord) +
                             " non c'è più: è stato eliminato mentre era aperto");
  }
}

void FattureCli::Interno::ScriviRighe(Scritta& scritta) {
  const IdentitaDocumento suo{tipo.cod, anno, scritta.numDoc};
  const std::vector<Coppia> copiate = Copiate();
  scritta.righe = righe.Tutte();
  if (!documento.Nuovo() && !righe.Modificate()) {
    if (copiate != copiateRecord) RiportaTesta(ambiente, suo, copiate);
    return;
  }
  if (Carico() && !EsistenzaIniziale()) NumeraLotti(ambiente, scritta.righe);
  // Rows left under the number of a document that is gone aren't this one's.
  TogliRighe(ambiente, suo);
  AggiungiRighe(ambiente, suo, copiate, scritta.righe);
}

void FattureCli::Interno::SegnaOrdini(Scritta& scritta) {
  const char* tabella = DiFornitori() && Carico()  ? "OrdiniFor_r"
                        : DiClienti() && Scarico() ? "OrdiniCli_r"
                                                   : nullptr;
  if (tabella == nullptr) return;
  for (const RigaDocumento& una : righe.Tutte()) {
    if (una.ordine == 0 || !una.ordineSaldato) continue;
    const auto segnate = records::AggiornaRighe(
        tessarc, tabella, {{"OrdineSaldato", true}},
        {{"TipoDoc", "O"}, {"NumDoc", una.ordine}, {"Posi", una.posiOrdine}});
    if (segnate != 0) continue;
    scritta.avvisi.push_back(NonTrovato("l'ordine", una.ordine, una.posiOrdine, "ordinesaldato"));
  }
}

void FattureCli::Interno::SegnaCommesse(Scritta& scritta) {
  if (!Scarico()) return;
  for (const RigaDocumento& una : righe.Tutte()) {
    if (una.commessa == 0 || !una.ut) continue;
    const auto segnate =
        records::AggiornaRighe(tessarc, "Commesse_r", {{"Ut", true}},
                               {{"NumDoc", una.commessa}, {"Posi", una.posiCommessa}});
    if (segnate != 0) continue;
    scritta.avvisi.push_back(
        NonTrovato("la commessa", una.commessa, una.posiCommessa, "'utilizzato'"));
  }
}

void FattureCli::Interno::AggiornaPrezziFornitore() {
  if (!DiFornitori() || !Carico()) return;
  for (const RigaDocumento& una : righe.Tutte()) {
    if (una.codiceRiga.empty()) continue;
    records::AggiornaRighe(
        tessarc, "prodottiFor_r",
        {{"Prezzo", una.prezzoA}, {"Sc1", una.sc1}, {"Sc2", una.sc2}, {"Sc3", una.sc3}},
        {{"Fornitore", T("CliFor")}, {"Cod", una.codiceRiga}});
  }
}

std::string FattureCli::Interno::DescrizioneAllegati(std::int64_t numero) const {
  std::string testo = "Tipo documentto: " + tipo.cod + " " + tipo.descrizione + " n. " +
                      std::to_string(numero) + " " + T("CliFor") + " " +
                      NzStr(DellaParte("ragsoc1"));
  if (!tipo.Movimento()) return testo;
  return testo + " Riferimenti carico: " + D("DtDocCarico").Testo() + " n. " + T("NumDocCarico");
}

void FattureCli::Interno::ScriviTutto(Scritta& scritta) {
  scritta.numDoc = documento.Nuovo() ? N("NumDoc") : numeroRecord;
  if (scritta.numDoc == 0) scritta.numDoc = ProssimoNumero(ambiente, tipo, anno);
  SegnaOrdini(scritta);
  AggiornaPrezziFornitore();
  SegnaCommesse(scritta);
  ScriviTesta(scritta);
  ScriviRighe(scritta);
  ScriviComponenti(scritta);
  ScriviGemello(scritta);
  allegati.Scrivi(scritta.id, DescrizioneAllegati(scritta.numDoc));
}

// --- After ---------------------------------------------------------------------------------------

void FattureCli::Interno::Annuncia(const Scritta& scritta) {
  for (const std::string& avviso : scritta.avvisi) Avviso(avviso);
  fatto = {NomeDocumento(scritta.numDoc) + " memorizzato"};
  fatto.insert(fatto.end(), scritta.annunci.begin(), scritta.annunci.end());
}

bool FattureCli::Conferma(std::string* campo) {
  Interno& io = *interno_;
  if (io.Ferma()) return false;
  Interno::Scritta scritta;
  std::vector<std::string_view> numerazioni = {"FATTURECLI"};
  if (!io.T("Riva").empty()) numerazioni.emplace_back("ARTICOLI");
  const bool riuscita = records::Esegui(
      io.ambiente, {.nonRiuscita = "conferma del documento non riuscita: ",
                    .dopoErrore = "\nNon è stato scritto nulla: il documento è ancora sullo "
                                  "schermo, si può riprovare",
                    .dopoRifiuto = "",
                    .numerazioni = numerazioni,
                    .ambito = Transazione::Ambito::Tessarc,
                    .prima =
                        [&] {
                          if (io.ChiediSpeseIncasso()) return false;
                          io.Dimentica();
                          io.CalcolaTotali();
                          if (io.documento.Rifiuta(io.Controlla(), campo)) return false;
                          io.RigeneraScadPag();
                          return io.ChiediLegati();
                        },
                    // Codes are looked at in the transaction, which reads them all under one lock.
                    .scrivi =
                        [&] {
                          scritta = {};
                          if (const auto rifiuto = io.ControllaCodici()) {
                            if (campo != nullptr) *campo = rifiuto->campo;
                            return rifiuto->messaggio;
                          }
                          io.bozza.InConferma(true);
                          io.ScriviTutto(scritta);
                          return std::string();
                        },
                    .annulla = [&] { io.allegati.Annullati(); }});
  io.bozza.InConferma(false);
  io.bloccati.clear();
  if (!riuscita) {
    io.Segna();
    return false;
  }
  io.allegati.Confermati();
  io.confermato = {io.tipo.cod, io.anno, scritta.numDoc};
  io.ambiente.Ricorda({.funzione = "FattureCli",
                       .codice = std::to_string(scritta.numDoc),
                       .anno = io.anno,
                       .classe = io.tipo.cod});
  io.Annuncia(scritta);
  io.ChiudiRecord();
  return true;
}

IdentitaDocumento FattureCli::Confermato() const {
  return interno_->confermato;
}

const std::vector<std::string>& FattureCli::Fatto() const {
  return interno_->fatto;
}

}  // namespace fenalto::documents
