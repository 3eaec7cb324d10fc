// The customs giro: the taxable amount of a customs bill goes from the bill's party to the supplier
// of the goods.
#include "vat/postings/GiroFornitore.h"
#include "vat/postings/RegistrazioniAutomatiche.h"

namespace fenalto::vat {

bool RegistraBollaDoganale(Ambiente& ambiente, const ArticoloOrigine& origine,
                           const DatiBollaDoganale& dati, LogContabile& log) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::string chiave = ChiaveArticolo(origine);
  Rs articolo = LeggiArticolo(ambiente, origine);
  if (articolo.Eof()) {
    log.Riga("registraz.automatica intra : NON ESISTE L'ARTICOLO del registro 03");
    return false;
  }
  if (dati.fornitore.empty() || dati.causale.empty()) {
    log.Riga(
        "registraz.automatica giro bolla doganale : mancano dati,impossibile effettuare la "
        "registrazione automatica");
    return false;
  }
  GiroFornitore giro;
  for (Rs riga = tessarc.Recordset("select Imponibile from movimenti where " + chiave +
                                   " and tiporiga=3");
       !riga.Eof(); riga.MoveNext()) {
    giro.importo += riga.Fields("Imponibile").Importo();
  }
  Rs parte = tessarc.Recordset("select Posi, Descrizione from movimenti where " + chiave +
                               " and tiporiga=5");
  if (!parte.Eof()) {
    giro.posi = parte.Fields("Posi").Intero();
    giro.descrizione = parte.Fields("Descrizione").Testo();
  }
  giro.articolo = giro.documento = origine;
  giro.cfp = articolo.Fields("CFP").Testo();
  giro.conto = articolo.Fields("Conto").Testo();
  giro.fornitore = dati.fornitore;
  giro.causale = dati.causale;
  giro.pagamento = dati.pagamento;
  giro.programma = "bolladog";
  giro.origine = ledger::Origine::BollaDoganale;
  giro.testo = "Registraz.giro dogana/fornitore : Articolo n. ";
  ScriviGiroFornitore(ambiente, giro, log);
  return true;
}

}  // namespace fenalto::vat
