#include "vat/postings/DatiIva.h"

#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"

namespace fenalto::vat {

DocumentoIva DocumentoDiRegistro(Ambiente& ambiente, const std::string& riva) {
  DocumentoIva documento;
  documento.riva = riva;
  Rs registro = ambiente.ArchivioDi("tessarc").Recordset("select * from RegistriIva where " +
                                                         sql::Criterio("Cod", "=", riva));
  if (!registro.Eof()) {
    documento.riva = registro.Fields("Cod").Testo();
    documento.tipo = registro.Fields("Tipo").Testo();
    documento.descrRiva = registro.Fields("Descrizione").Testo();
    documento.contoIva = registro.Fields("Conto").Testo();
  }
  documento.commesseVecchioSistema = ImpostazioneAttiva(ambiente, "CommesseVecchioSistema");
  documento.inverteNoteCredito = ImpostazioneAttiva(ambiente, "InvertoDAinNoteCredito");
  return documento;
}

void ScriviRigaIva(Archivio& tessarc, const RigaIva& riga) {
  tessarc.Inserisci("Movimenti", {{"Anno", riga.anno},
                                  {"NumDoc", riga.numDoc},
                                  {"Posi", riga.posi},
                                  {"Causale", riga.causale},
                                  {"Descrizione", riga.descrizione},
                                  {"CFP", riga.cfp},
                                  {"Conto", riga.conto},
                                  {"ImpoDare", riga.impoDare},
                                  {"ImpoAvere", riga.impoAvere},
                                  {"CFPControp", riga.cfpControp},
                                  {"ContoControp", riga.contoControp},
                                  {"DiversiControp", riga.diversiControp},
                                  {"TIPORIGA", static_cast<int>(riga.tipoRiga)},
                                  {"CodIva", riga.codIva},
                                  {"Imponibile", riga.imponibile},
                                  {"Iva", riga.iva},
                                  {"IvaInd", riga.ivaInd},
                                  {"Categoria", riga.categoria},
                                  {"Commessa", riga.commessa}});
}

RigaIva LeggiRigaIva(const Rs& letta) {
  RigaIva riga;
  riga.anno = static_cast<int>(letta.Fields("Anno").Intero());
  riga.numDoc = letta.Fields("NumDoc").Intero();
  riga.posi = letta.Fields("Posi").Intero();
  riga.causale = letta.Fields("Causale").Testo();
  riga.descrizione = letta.Fields("Descrizione").Testo();
  riga.cfp = letta.Fields("CFP").Testo();
  riga.conto = letta.Fields("Conto").Testo();
  riga.impoDare = letta.Fields("ImpoDare").Importo();
  riga.impoAvere = letta.Fields("ImpoAvere").Importo();
  riga.cfpControp = letta.Fields("CFPControp").Testo();
  riga.contoControp = letta.Fields("ContoControp").Testo();
  riga.diversiControp = letta.Fields("DiversiControp").Booleano();
  riga.tipoRiga = static_cast<TipoRigaIva>(letta.Fields("TIPORIGA").Intero());
  riga.codIva = letta.Fields("CodIva").Testo();
  riga.imponibile = letta.Fields("Imponibile").Importo();
  riga.iva = letta.Fields("Iva").Importo();
  riga.ivaInd = letta.Fields("IvaInd").Importo();
  riga.categoria = letta.Fields("Categoria").Testo();
  riga.commessa = letta.Fields("Commessa").Testo();
  return riga;
}

std::vector<RigaIva> LeggiRigheIva(Archivio& tessarc, int anno, std::int64_t numDoc) {
  std::vector<RigaIva> righe;
  for (Rs riga = tessarc.Recordset("select * from movimenti where " +
                                   sql::Criterio("anno", "=", anno) + " and " +
                                   sql::Criterio("numdoc", "=", numDoc) + " order by posi, num");
       !riga.Eof(); riga.MoveNext()) {
    righe.push_back(LeggiRigaIva(riga));
  }
  return righe;
}

}  // namespace fenalto::vat
