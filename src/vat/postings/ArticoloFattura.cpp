#include "vat/postings/ArticoloFattura.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "duedates/schedules/CreaScadenze.h"
#include "vat/codes/TipiRegistro.h"
#include "vat/postings/DatiIva.h"
#include "vat/postings/SeguitoFattura.h"

namespace fenalto::vat {
namespace {

const Importo kCento = Importo::DaDecimillesimi(100 * Importo::kScala);

constexpr std::string_view kTestaAttenzione =
    "ATTENZIONE : in contabilità non esiste l'articolo relativo a questa fattura!!!";

/// Net and VAT of one row of totals.
void ImportiDiRiga(const RichiestaArticoloFattura& richiesta, const TotaleDocumento& totale,
                   bool euro, RigaIva& riga) {
  if (richiesta.prezziIvati) {
    riga.imponibile = ScorporaImponibile(totale.importo, totale.perc);
    riga.iva = totale.importo - riga.imponibile;
    return;
  }
  const Importo base = EuroInLire(totale.importo, richiesta.inLire);
  riga.imponibile = ApplicaScontoCassa(base, richiesta.scontoCassa, euro);
  // Goods given away (a discount of the whole amount) bear the VAT of their value.
  const bool omaggio = richiesta.scontoCassa == kCento;
  riga.iva = CalcolaIva(omaggio ? base : riga.imponibile, totale.perc, euro);
}

std::vector<RigaIva> RigheDiDocumento(const RichiestaArticoloFattura& richiesta, bool vecchie,
                                      bool euro) {
  std::vector<RigaIva> righe;
  for (const auto& totale : richiesta.totali) {
    if (totale.conto.empty() || totale.codIva.empty() || totale.importo.Zero()) continue;
    RigaIva riga;
    riga.posi = static_cast<std::int64_t>(righe.size()) + 1;
    riga.conto = totale.conto;
    riga.codIva = totale.codIva;
    riga.descrizione = richiesta.descrizione;
    if (!vecchie && richiesta.commessa != 0) riga.commessa = std::to_string(richiesta.commessa);
    ImportiDiRiga(richiesta, totale, euro, riga);
    righe.push_back(std::move(riga));
  }
  return righe;
}

/// Account of the largest net row, the first of equals; of the first row when none is above zero.
std::string Contropartita(const std::vector<RigaIva>& righe) {
  if (righe.empty()) return {};
  std::string conto = righe.front().conto;
  Importo massimo;
  for (const auto& riga : righe) {
    if (riga.tipoRiga != TipoRigaIva::Imponibile || riga.imponibile <= massimo) continue;
    massimo = riga.imponibile;
    conto = riga.conto;
  }
  return conto;
}

void ScriviTesta(Archivio& tessarc, const RichiestaArticoloFattura& richiesta, std::int64_t numDoc,
                 std::string_view cfp) {
  tessarc.Inserisci("Articoli", {{"Anno", richiesta.anno},
                                 {"NumDoc", numDoc},
                                 {"Riva", richiesta.riva},
                                 {"NProt", richiesta.nProt},
                                 {"Dt", richiesta.dt},
                                 {"CFP", cfp},
                                 {"Conto", richiesta.conto},
                                 {"DtFat", richiesta.dtFat},
                                 {"NFat", richiesta.nFat},
                                 {"Ep", richiesta.ep},
                                 {"DtIncasso", richiesta.dtIncasso},
                                 {"Pagamento", richiesta.pagamento},
                                 {"CREATOINAUTOMATICO", static_cast<int>(ledger::Origine::Fattura)},
                                 {"NVarAnPrec", richiesta.nVarAnPrec}});
}

/// Payment, withholdings and due dates of the invoice just written.
void ScriviSeguito(Ambiente& ambiente, const RichiestaArticoloFattura& richiesta,
                   const RigheComplete& scritte, std::string_view cfp, std::int64_t numDoc,
                   LogContabile& log) {
  Importo daPagare = scritte.Totale();
  for (const auto& ritenuta : richiesta.ritenute) daPagare -= ritenuta.importo;
  if (richiesta.nuovo && richiesta.registraPagamento) {
    CreaContabPagamento(ambiente,
                        {std::string(cfp),
                         richiesta.conto,
                         richiesta.pagamento,
                         richiesta.descrizione,
                         daPagare,
                         richiesta.dt,
                         richiesta.anno,
                         {richiesta.anno, numDoc}},
                        log);
  }
  if (richiesta.nuovo) {
    for (const auto& ritenuta : richiesta.ritenute) {
      if (ritenuta.importo.Zero()) continue;
      CreaGiroRitenuta(ambiente,
                       {std::string(cfp),
                        richiesta.conto,
                        ritenuta.codice,
                        ritenuta.descrizione,
                        ritenuta.importo,
                        richiesta.dt,
                        richiesta.anno,
                        {richiesta.anno, numDoc}},
                       log);
    }
  }
  const bool ritoccato = !richiesta.nuovo && richiesta.tipoDoc.empty();
  if (ritoccato || richiesta.senzaScadenze) return;
  duedates::RichiestaScadenze scadenze;
  scadenze.cfp = cfp;
  scadenze.conto = richiesta.conto;
  scadenze.codPag = richiesta.pagamento;
  scadenze.data = richiesta.dtFat;
  scadenze.importo = daPagare;
  scadenze.iva = scritte.iva + scritte.ivaInd;
  scadenze.descrizione = richiesta.descrizione;
  scadenze.dataFat = richiesta.dtFat;
  scadenze.numFat = richiesta.nFat;
  scadenze.numProt = richiesta.nProt;
  scadenze.riva = richiesta.riva;
  scadenze.anno = richiesta.anno;
  scadenze.articolo = numDoc;
  scadenze.programma = "fatture";
  scadenze.tipoDoc = richiesta.tipoDoc;
  duedates::CreaScadenze(ambiente, scadenze, log.testo, log.avvisi);
}

}  // namespace

bool CreaArticoloFattura(Ambiente& ambiente, const RichiestaArticoloFattura& richiesta,
                         std::int64_t& numDoc, LogContabile& log) {
  if (richiesta.anno == 0) {
    log.avvisi.emplace_back("manca modifica 'anno'");
    return false;
  }
  if (!richiesta.contabilizza) return true;
  DocumentoIva documento = DocumentoDiRegistro(ambiente, richiesta.riva);
  const TipoRegistro* tipo = TrovaTipoRegistro(documento.tipo);
  if (tipo == nullptr || !tipo->documenti) {
    log.avvisi.push_back("tipo registro iva " + documento.tipo +
                         " non previsto su CreaArticoloFattura");
    return false;
  }
  numDoc = richiesta.numDoc;
  std::vector<ArticoloOrigine> legati;
  if (!richiesta.nuovo) legati = LegatiA(ambiente, {richiesta.anno, numDoc});
  if (richiesta.nuovo) {
    numDoc = ledger::ProssimoNumDoc(ambiente, richiesta.anno);
  } else if (!EliminaContabFattura(ambiente, richiesta.anno, richiesta.riva, richiesta.nProt,
                                   richiesta.pagamento, log)) {
    return false;
  }
  RichiestaArticoloFattura completa = richiesta;
  if (completa.descrizione.empty()) {
    completa.descrizione = "FATT. " + richiesta.nFat + " Del " + richiesta.dtFat.Testo();
  }
  documento.anno = richiesta.anno;
  documento.numDoc = numDoc;
  documento.conto = richiesta.conto;
  documento.descrizione = completa.descrizione;
  auto scritte = CreaRigheIvaCli(
      documento, RigheDiDocumento(completa, documento.commesseVecchioSistema, ambiente.Euro()));
  if (!scritte) {
    log.avvisi.push_back(scritte.Errore().messaggio);
    return false;
  }
  auto& righe = scritte.Valore().righe;
  righe.back().contoControp = Contropartita(righe);
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  // The head first: the rows then take its date as they are written.
  ScriviTesta(tessarc, completa, numDoc, tipo->cfp);
  LegaA(ambiente, legati, {richiesta.anno, numDoc});
  for (const auto& riga : righe) ScriviRigaIva(tessarc, riga);
  log.Riga("Effettuata contabilizzazione fattura: art." + std::to_string(numDoc) + " prot." +
           std::to_string(richiesta.nProt));
  ScriviSeguito(ambiente, completa, scritte.Valore(), tipo->cfp, numDoc, log);
  return true;
}

bool EliminaContabFattura(Ambiente& ambiente, int anno, const std::string& riva, std::int64_t nProt,
                          const std::string& pagamento, LogContabile& log) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::string documento = sql::Criterio("NProt", "=", nProt) + " and " +
                                sql::Criterio("Anno", "=", anno) + " and " +
                                sql::Criterio("Riva", "=", riva);
  Rs articolo =
      tessarc.Recordset("select NumDoc, CFP, Conto from ZarticoliFatture where " + documento);
  if (articolo.Eof()) {
    log.avvisi.push_back(std::string(kTestaAttenzione) +
                         "\npotrebbero essere state effettuate variazioni o annullamenti errati o "
                         "forzato un numero documento errato");
    return false;
  }
  const std::int64_t numDoc = articolo.Fields("NumDoc").Intero();
  const duedates::ParteScadenze parte{articolo.Fields("CFP").Testo(),
                                      articolo.Fields("Conto").Testo()};
  const std::string chiave =
      sql::Criterio("Numdoc", "=", numDoc) + " and " + sql::Criterio("Anno", "=", anno);
  if (tessarc.Recordset("select top 1 Num from movimenti where " + chiave).Eof()) {
    log.avvisi.push_back(
        std::string(kTestaAttenzione) +
        "\nla fattura potrebbe essere relativa ad un esercizio contabile diverso da quello "
        "indicato in 'selezione anno' oppure sono state effettuate variazioni o annullamenti "
        "errati : LA REGISTRAZIONE CONTABILE NON VERRA' AGGIORNATA");
    return false;
  }
  tessarc.Esegui("delete * from articoli where " + chiave);
  tessarc.Esegui("delete * from movimenti where " + chiave);
  log.Riga("elim.contabilizzazione fattura art." + std::to_string(numDoc));
  if (!pagamento.empty()) {
    duedates::EliminaScadenzeFattura(ambiente, anno, numDoc, log.testo, parte);
  }
  return true;
}

}  // namespace fenalto::vat
