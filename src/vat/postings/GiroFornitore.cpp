#include "vat/postings/GiroFornitore.h"

#include "duedates/schedules/CreaScadenze.h"

namespace fenalto::vat {

void ScriviGiroFornitore(Ambiente& ambiente, const GiroFornitore& giro, LogContabile& log) {
  Rs articolo = LeggiArticolo(ambiente, giro.articolo);
  ledger::RegistrazioneDueRighe r;
  r.anno = giro.articolo.anno;
  r.dt = articolo.Fields("Dt").Data();
  r.causale = giro.causale;
  r.descrizione = giro.descrizione;
  r.cfp = r.testaCfp = giro.cfp;
  r.conto = r.testaConto = giro.conto;
  r.cfpA = r.testaCfpA = "F";
  r.contoA = r.testaContoA = giro.fornitore;
  r.dare = giro.importo;
  r.posi1 = r.posi2 = giro.posi;
  r.origine = giro.origine;
  r.seguitoDi = giro.documento;
  r.dtFat = articolo.Fields("DtFat").Data();
  r.nFat = articolo.Fields("NFat").Testo();
  const auto numDoc = ledger::ScriviDueRighe(ambiente, r);
  log.Riga(giro.testo + std::to_string(numDoc) + " EFFETTUATA");

  RichiestaControConto pagamento;
  pagamento.cfp = "F";
  pagamento.conto = giro.fornitore;
  pagamento.codice = giro.pagamento;
  pagamento.descrizione = giro.descrizione;
  pagamento.importo = giro.importo;
  pagamento.dt = r.dt;
  pagamento.anno = r.anno;
  pagamento.documento = giro.documento;
  CreaContabPagamento(ambiente, pagamento, log);

  duedates::RichiestaScadenze scadenze;
  scadenze.cfp = "F";
  scadenze.conto = giro.fornitore;
  scadenze.codPag = giro.pagamento;
  scadenze.data = r.dtFat.Nulla() ? r.dt : r.dtFat;
  scadenze.importo = giro.importo;
  scadenze.descrizione = giro.descrizione;
  scadenze.dataFat = r.dtFat;
  scadenze.numFat = r.nFat;
  scadenze.numProt = articolo.Fields("NProt").Intero();
  scadenze.riva = articolo.Fields("Riva").Testo();
  scadenze.anno = r.anno;
  scadenze.articolo = numDoc;
  scadenze.programma = giro.programma;
  if (!scadenze.codPag.empty()) duedates::CreaScadenze(ambiente, scadenze, log.testo, log.avvisi);
}

}  // namespace fenalto::vat
