#include "vat/postings/RigheIva.h"

#include <algorithm>

#include "core/values/Testo.h"
#include "vat/codes/TipiRegistro.h"
#include "vat/postings/ImpostaImportoRiga.h"

namespace fenalto::vat {

namespace {

constexpr std::string_view kPiuCommesse =
    "E'stata inserita più di una commessa: sulla riga fornitore/cliente viene trasportato il "
    "riferimento ad una sola commessa!";

/// The job that goes to the party's row: the last of those on the rows.
class CommessaSeguita {
 public:
  void Vedi(std::string_view commessa) {
    if (commessa.empty() || commessa == "0") return;
    piuDiUna_ = piuDiUna_ || (!ultima_.empty() && !UgualeTesto(ultima_, commessa));
    ultima_ = commessa;
  }
  [[nodiscard]] const std::string& Ultima() const { return ultima_; }
  [[nodiscard]] bool PiuDiUna() const { return piuDiUna_; }

 private:
  std::string ultima_;
  bool piuDiUna_ = false;
};

RigaIva NuovaRiga(const DocumentoIva& documento, TipoRigaIva tipoRiga, std::int64_t posi,
                  char cifra) {
  RigaIva riga;
  riga.anno = documento.anno;
  riga.numDoc = documento.numDoc;
  riga.posi = posi;
  riga.causale = documento.riva + cifra;
  riga.tipoRiga = tipoRiga;
  return riga;
}

void ScriviLati(RigaIva& riga, GenereRigaIva genere, Importo importo,
                const DocumentoIva& documento) {
  ImpostaImportoRiga(genere, importo, documento.tipo, documento.inverteNoteCredito, riga.impoDare,
                     riga.impoAvere);
}

void CompletaImponibile(RigaIva& riga, const DocumentoIva& documento, std::string_view cfp) {
  riga.anno = documento.anno;
  riga.numDoc = documento.numDoc;
  riga.cfp = "P";
  riga.causale = documento.riva + '1';
  riga.cfpControp = cfp;
  riga.contoControp = documento.conto;
  ScriviLati(riga, GenereRigaIva::Imp, riga.imponibile + riga.ivaInd, documento);
}

RigaIva RigaImposta(const DocumentoIva& documento, std::string_view cfp, Importo iva) {
  RigaIva riga = NuovaRiga(documento, TipoRigaIva::Iva, kPosiIva, '2');
  riga.descrizione = documento.descrRiva;
  riga.cfp = "P";
  riga.conto = documento.contoIva;
  riga.cfpControp = cfp;
  riga.contoControp = documento.conto;
  ScriviLati(riga, GenereRigaIva::Iva, iva, documento);
  return riga;
}

RigaIva RigaParte(const DocumentoIva& documento, std::string_view cfp, Importo totale,
                  std::string_view contropartita) {
  RigaIva riga = NuovaRiga(documento, TipoRigaIva::Parte, kPosiParte, '3');
  riga.descrizione = documento.descrizione;
  riga.cfp = cfp;
  riga.conto = documento.conto;
  riga.cfpControp = "P";
  riga.contoControp = contropartita;
  ScriviLati(riga, GenereRigaIva::CliFor, totale, documento);
  return riga;
}

bool Digitata(const RigaIva& riga) {
  return riga.tipoRiga != TipoRigaIva::Iva && riga.tipoRiga != TipoRigaIva::Parte;
}

}  // namespace

Esito<RigheComplete> CreaRigheIvaCli(const DocumentoIva& documento,
                                     const std::vector<RigaIva>& digitate) {
  const TipoRegistro* tipo = TrovaTipoRegistro(documento.tipo);
  if (tipo == nullptr || tipo->cfp.empty()) {
    return Errore{"tipo registro iva " + documento.tipo + " non previsto su CreaRigheIvaCli"};
  }
  RigheComplete complete;
  CommessaSeguita commessa;
  std::int64_t ultimaPosi = 0;
  for (RigaIva riga : digitate) {
    if (!Digitata(riga)) continue;
    if (riga.posi == 0) riga.posi = ultimaPosi + 1;
    ultimaPosi = std::max(ultimaPosi, riga.posi);
    CompletaImponibile(riga, documento, tipo->cfp);
    complete.imponibile += riga.imponibile;
    complete.iva += riga.iva;
    complete.ivaInd += riga.ivaInd;
    if (!documento.commesseVecchioSistema) commessa.Vedi(riga.commessa);
    complete.righe.push_back(std::move(riga));
  }
  const std::string contropartita =
      complete.righe.empty() ? std::string() : complete.righe.front().conto;
  if (!(tipo->ivaFacoltativa && complete.iva.Zero())) {
    complete.righe.push_back(RigaImposta(documento, tipo->cfp, complete.iva));
  }
  complete.righe.push_back(RigaParte(documento, tipo->cfp, complete.Totale(), contropartita));
  complete.righe.back().commessa = commessa.Ultima();
  if (commessa.PiuDiUna()) complete.avviso = kPiuCommesse;
  return complete;
}

}  // namespace fenalto::vat
