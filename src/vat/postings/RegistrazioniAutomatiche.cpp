#include "vat/postings/RegistrazioniAutomatiche.h"

#include <utility>

#include "core/sql/Criterio.h"

namespace fenalto::vat {
namespace {

/// A party against an account, on the sides of a payment: what a customer gives goes to the
/// account, what a supplier gets comes from it.
ledger::RegistrazioneDueRighe ParteControConto(const std::string& cfp, const std::string& parte,
                                               const std::string& conto, Importo importo) {
  ledger::RegistrazioneDueRighe r;
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
  return sql::Criterio("Anno", "=", articolo.anno) + " and " +
         sql::Criterio("NumDoc", "=", articolo.numDoc);
}

Rs LeggiArticolo(Ambiente& ambiente, const ArticoloOrigine& articolo) {
  return ambiente.ArchivioDi("tessarc").Recordset("select * from articoli where " +
                                                  ChiaveArticolo(articolo));
}

std::int64_t ProssimoNProt(Ambiente& ambiente, int anno, const std::string& riva) {
  // Through the stored query: the engine uses an index of some rows only when told which ones.
  return ambiente
             .Max("NProt", "ZarticoliProtocollati", {{"Anno", anno}, {"Riva", riva}},
                  ambiente.ArchivioDi("tessarc"))
             .Intero() +
         1;
}

namespace {

/// The registration by account and causal of a code's row in `tabella`; 0 when they aren't there.
std::int64_t ScriviControConto(Ambiente& ambiente, const RichiestaControConto& richiesta,
                               std::string_view tabella, ledger::Origine origine) {
  Rs codice =
      ambiente.ArchivioDi("tessarc").Recordset("SELECT * FROM " + std::string(tabella) + " WHERE " +
                                               sql::Criterio("COD", "=", richiesta.codice));
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
  registrazione.seguitoDi = richiesta.documento;
  return ledger::ScriviDueRighe(ambiente, registrazione);
}

}  // namespace

std::int64_t CreaContabPagamento(Ambiente& ambiente, const RichiestaControConto& richiesta,
                                 LogContabile& log) {
  if (richiesta.codice.empty()) return 0;
  const auto numDoc =
      ScriviControConto(ambiente, richiesta, "Pagamento", ledger::Origine::Pagamento);
  if (numDoc != 0) {
    log.Riga("Effettuata contabilizzazione pagamento : art." + std::to_string(numDoc));
  }
  return numDoc;
}

std::int64_t CreaGiroRitenuta(Ambiente& ambiente, const RichiestaControConto& richiesta,
                              LogContabile& log) {
  const auto numDoc =
      ScriviControConto(ambiente, richiesta, "Ritenute", ledger::Origine::GiroRitenuta);
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
  registrazione.origine = ledger::Origine::RitenutaAcconto;
  registrazione.seguitoDi = origine;
  const auto numDoc = ledger::ScriviDueRighe(ambiente, registrazione);
  log.Riga("Registrazione giro ritenuta : Articolo n. " + std::to_string(numDoc) + " EFFETTUATA");
  return true;
}

}  // namespace fenalto::vat
