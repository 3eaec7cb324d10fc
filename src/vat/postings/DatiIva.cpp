#include "vat/postings/DatiIva.h"

#include "core/records/RigheInTabella.h"
#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"

namespace fenalto::vat {
namespace {

using records::Campo;

constexpr records::CampoRiga<RigaIva> kColonne[] = {
    Campo<&RigaIva::anno>("Anno"),
    Campo<&RigaIva::numDoc>("NumDoc"),
    Campo<&RigaIva::posi>("Posi"),
    Campo<&RigaIva::causale>("Causale"),
    Campo<&RigaIva::descrizione>("Descrizione"),
    Campo<&RigaIva::cfp>("CFP"),
    Campo<&RigaIva::conto>("Conto"),
    Campo<&RigaIva::impoDare>("ImpoDare"),
    Campo<&RigaIva::impoAvere>("ImpoAvere"),
    Campo<&RigaIva::cfpControp>("CFPControp"),
    Campo<&RigaIva::contoControp>("ContoControp"),
    Campo<&RigaIva::diversiControp>("DiversiControp"),
    Campo<&RigaIva::tipoRiga>("TIPORIGA"),
    Campo<&RigaIva::codIva>("CodIva"),
    Campo<&RigaIva::imponibile>("Imponibile"),
    Campo<&RigaIva::iva>("Iva"),
    Campo<&RigaIva::ivaInd>("IvaInd"),
    Campo<&RigaIva::categoria>("Categoria"),
    Campo<&RigaIva::commessa>("Commessa")};

}  // namespace

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
  tessarc.Inserisci("Movimenti", records::Valori<RigaIva>(riga, kColonne));
}

std::vector<RigaIva> LeggiRigheIva(Archivio& tessarc, int anno, std::int64_t numDoc) {
  std::vector<RigaIva> righe;
  for (Rs riga = tessarc.Recordset("select * from movimenti where " +
                                   sql::Criterio("anno", "=", anno) + " and " +
                                   sql::Criterio("numdoc", "=", numDoc) + " order by posi, num");
       !riga.Eof(); riga.MoveNext()) {
    righe.push_back(records::LeggiRiga<RigaIva>(riga, kColonne));
  }
  return righe;
}

}  // namespace fenalto::vat
