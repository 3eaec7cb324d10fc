#include "vat/RegistrazioniAutomatiche.h"

#include <utility>

#include "core/sql/Criterio.h"

namespace fenalto {
namespace {

/// One row of a two-row registration.
struct RigaSemplice {
  std::int64_t posi;
  const std::string& cfp;
  const std::string& conto;
  Importo dare;
  Importo avere;
  const std::string& cfpControp;
  const std::string& contoControp;
};

void ScriviRiga(Archivio& tessarc, const RegistrazioneDueRighe& r, std::int64_t numDoc,
                const RigaSemplice& riga) {
  tessarc.Inserisci("Movimenti", {{"Anno", r.anno},
                                  {"NumDoc", numDoc},
                                  {"Posi", riga.posi},
                                  {"Causale", r.causale},
                                  {"Descrizione", r.descrizione},
                                  {"CFP", riga.cfp},
                                  {"Conto", riga.conto},
                                  {"ImpoDare", riga.dare},
                                  {"ImpoAvere", riga.avere},
                                  {"CFPControp", riga.cfpControp},
                                  {"ContoControp", riga.contoControp},
                                  {"TIPORIGA", 0}});
}

/// A party against an account, on the sides of a payment: what a customer gives goes to the
/// account, what a supplier gets comes from it.
RegistrazioneDueRighe ParteControConto(const std::string& cfp, const std::string& parte,
                                       const std::string& conto, Importo importo) {
  RegistrazioneDueRighe r;
  r.cfp = cfp;
  r.conto = parte;
  r.cfpA = "P";
  r.contoA = conto;
  const bool fornitore = cfp == "F";
  (fornitore ? r.dare : r.avere) = importo;
  r.testaCfp = fornitore ? "F" : "P";
  r.testaConto = fornitore ? parte : conto;
  r.testaCfpA = fornitore ? "P" : cfp;
  r.testaContoA = fornitore ? conto : parte;
  return r;
}

}  // namespace

void LogContabile::Riga(std::string_view riga) {
  if (!testo.empty()) testo += '\n';
  testo += riga;
}

std::string ChiaveArticolo(const ArticoloOrigine& articolo) {
  return Criterio("Anno", "=", articolo.anno) + " and " + Criterio("NumDoc", "=", articolo.numDoc);
}

Rs LeggiArticolo(Ambiente& ambiente, const ArticoloOrigine& articolo) {
  return ambiente.ArchivioDi("tessarc").Recordset("select * from articoli where " +
                                                  ChiaveArticolo(articolo));
}

std::int64_t ProssimoNumDoc(Ambiente& ambiente, int anno) {
  return ambiente.Max("NumDoc", "Articoli", {{"Anno", anno}}, ambiente.ArchivioDi("tessarc"))
             .Intero() +
         1;
}

std::int64_t ProssimoNProt(Ambiente& ambiente, int anno, const std::string& riva) {
  // Through the stored query: the engine uses an index of some rows only when told which ones.
  return ambiente
             .Max("NProt", "ZarticoliProtocollati", {{"Anno", anno}, {"Riva", riva}},
                  ambiente.ArchivioDi("tessarc"))
             .Intero() +
         1;
}

std::int64_t ScriviDueRighe(Ambiente& ambiente, const RegistrazioneDueRighe& r) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::int64_t numDoc = ProssimoNumDoc(ambiente, r.anno);
  // The head first: the rows then take its date as they are written.
  tessarc.Inserisci("Articoli", {{"Anno", r.anno},
                                 {"NumDoc", numDoc},
                                 {"Dt", r.dt},
                                 {"CFP", r.testaCfp},
                                 {"Conto", r.testaConto},
                                 {"CfpA", r.testaCfpA},
                                 {"ContoA", r.testaContoA},
                                 {"CREATOINAUTOMATICO", static_cast<int>(r.origine)},
                                 {"DtFat", r.dtFat},
                                 {"NFat", r.nFat}});
  ScriviRiga(tessarc, r, numDoc, {r.posi1, r.cfp, r.conto, r.dare, r.avere, r.cfpA, r.contoA});
  ScriviRiga(tessarc, r, numDoc, {r.posi2, r.cfpA, r.contoA, r.avere, r.dare, r.cfp, r.conto});
  return numDoc;
}

namespace {

/// The registration by account and causal of a code's row in `tabella`; 0 when they aren't there.
std::int64_t ScriviControConto(Ambiente& ambiente, const RichiestaControConto& richiesta,
                               std::string_view tabella, Origine origine) {
  Rs codice = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT * FROM " + std::string(tabella) + " WHERE " + Criterio("COD", "=", richiesta.codice));
  if (codice.Eof()) return 0;
  const std::string conto = codice.Fields("Conto").Testo();
  const std::string causale = codice.Fields("Causale").Testo();
  if (conto.empty() || causale.empty()) return 0;
  auto registrazione = ParteControConto(richiesta.cfp, richiesta.conto, conto, richiesta.importo);
  registrazione.anno = richiesta.anno;
  registrazione.dt = richiesta.dt;
  registrazione.causale = causale;
  registrazione.descrizione = richiesta.descrizione;
  registrazione.origine = origine;
  return ScriviDueRighe(ambiente, registrazione);
}

}  // namespace

std::int64_t CreaContabPagamento(Ambiente& ambiente, const RichiestaControConto& richiesta,
                                 LogContabile& log) {
  if (richiesta.codice.empty()) return 0;
  const auto numDoc = ScriviControConto(ambiente, richiesta, "Pagamento", Origine::Pagamento);
  if (numDoc != 0) {
    log.Riga("Effettuata contabilizzazione pagamento : art." + std::to_string(numDoc));
  }
  return numDoc;
}

std::int64_t CreaGiroRitenuta(Ambiente& ambiente, const RichiestaControConto& richiesta,
                              LogContabile& log) {
  const auto numDoc = ScriviControConto(ambiente, richiesta, "Ritenute", Origine::GiroRitenuta);
  log.Riga(numDoc == 0 ? "Impossibile creare registrazione giro ritenuta " + richiesta.codice
                       : "Effettuata registrazione giro ritenuta : art." + std::to_string(numDoc));
  return numDoc;
}

bool RegistraGiroRitenuta(Ambiente& ambiente, const ArticoloOrigine& origine,
                          const DatiGiroRitenuta& dati, LogContabile& log) {
  Rs articolo = LeggiArticolo(ambiente, origine);
  if (articolo.Eof()) {
    log.Riga("registraz.giro ritenuta : NON ESISTE L'ARTICOLO della fattura");
    return false;
  }
  if (dati.causale.empty()) {
    log.Riga("manca causale per giro ritenuta");
    return false;
  }
  auto registrazione = ParteControConto(articolo.Fields("CFP").Testo(),
                                        articolo.Fields("Conto").Testo(), dati.conto, dati.importo);
  registrazione.anno = origine.anno;
  registrazione.dt = articolo.Fields("Dt").Data();
  registrazione.causale = dati.causale;
  registrazione.descrizione = NzStr(ambiente.ArchivioDi("tessarc").Singolo(
      "select top 1 descrizione from movimenti where " + ChiaveArticolo(origine) +
      " and tiporiga=5 order by posi"));
  registrazione.origine = Origine::RitenutaAcconto;
  const auto numDoc = ScriviDueRighe(ambiente, registrazione);
  log.Riga("Registrazione giro ritenuta : Articolo n. " + std::to_string(numDoc) + " EFFETTUATA");
  return true;
}

}  // namespace fenalto
