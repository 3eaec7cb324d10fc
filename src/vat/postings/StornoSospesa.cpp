#include "vat/postings/StornoSospesa.h"

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "vat/postings/DatiIva.h"
#include "vat/postings/PeriodoIva.h"

namespace fenalto::vat {

namespace {

/// By which a storno is found again.
std::string Descrizione(const SospesaStornabile& sospesa) {
  return "Storno IVA differita prot. " + sospesa.Nome();
}

std::string RifiutoPeriodoChiuso(Ambiente& ambiente, Data data) {
  const std::string periodo = PeriodoChiuso(ambiente, data);
  if (periodo.empty()) return {};
  return "La data di incasso " + data.Testo() + " cade nel periodo " + periodo + "/" +
         std::to_string(data.Anno()) +
         ", la cui liquidazione IVA è già stampata in definitiva.\nLa data non si può cambiare: "
         "scegliere una data di un periodo ancora aperto.";
}

}  // namespace

std::string SospesaStornabile::Nome() const {
  return riva + "/" + std::to_string(nProt) + " del " + dt.Testo();
}

bool SospesaStornabile::ContoAParte() const {
  return !iva.Zero() && !contoIncassate.empty() && !UgualeTesto(contoIva, contoIncassate);
}

std::optional<SospesaStornabile> LeggiSospesa(Ambiente& ambiente, const ArticoloOrigine& articolo) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  Rs r = tessarc.Recordset("select * from Articoli where " + ChiaveArticolo(articolo));
  if (r.Eof()) return std::nullopt;
  SospesaStornabile s;
  s.articolo = articolo;
  s.id = r.Fields("ID").Intero();
  s.dt = r.Fields("Dt").Data();
  s.dtFat = r.Fields("DtFat").Data();
  s.nFat = r.Fields("NFat").Testo();
  s.riva = r.Fields("Riva").Testo();
  s.nProt = r.Fields("NProt").Intero();
  s.incasso = r.Fields("DtIncasso").Data();
  const auto tipo = NzStr(ambiente.Cerca("tessarc", "RegistriIva", {{"Cod", s.riva}}, "Tipo"));
  // On a register of type 06 all invoices are deferred, marked or not.
  if (!r.Fields("Ep").Booleano() && tipo != "06") return std::nullopt;
  s.acquisto = tipo == "03";
  for (const RigaIva& riga : LeggiRigheIva(tessarc, articolo.anno, articolo.numDoc)) {
    if (riga.tipoRiga != TipoRigaIva::Iva) continue;
    s.contoIva = riga.conto;
    s.causaleIva = riga.causale;
    s.iva += riga.impoDare - riga.impoAvere;
  }
  Rs incassate =
      tessarc.Recordset("select * from RegistriIva where " +
                        sql::Criterio("Tipo", "=", s.acquisto ? "08A" : "08") + " order by Cod");
  if (!incassate.Eof()) {
    s.rivaIncassate = incassate.Fields("Cod").Testo();
    s.contoIncassate = incassate.Fields("Conto").Testo();
  }
  return s;
}

std::string IncassoInPeriodoChiuso(Ambiente& ambiente, Data prima, Data dopo) {
  if (prima == dopo) return {};
  std::string chiuso = RifiutoPeriodoChiuso(ambiente, prima);
  return chiuso.empty() ? RifiutoPeriodoChiuso(ambiente, dopo) : chiuso;
}

std::optional<ArticoloOrigine> TrovaStorno(Ambiente& ambiente, const SospesaStornabile& sospesa) {
  if (sospesa.incasso.Nulla()) return std::nullopt;
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::string descrizione = Descrizione(sospesa);
  for (Rs r = tessarc.Recordset("select NumDoc from Articoli where " +
                                sql::Criterio("Anno", "=", sospesa.incasso.Anno()) + " and " +
                                sql::Criterio("Dt", "=", sospesa.incasso) + " and " +
                                sql::Criterio("CREATOINAUTOMATICO", "=",
                                              static_cast<int>(ledger::Origine::StornoSospesa)));
       !r.Eof(); r.MoveNext()) {
    const ArticoloOrigine trovato{sospesa.incasso.Anno(), r.Fields("NumDoc").Intero()};
    const auto righe = LeggiRigheIva(tessarc, trovato.anno, trovato.numDoc);
    if (!righe.empty() && righe.front().descrizione == descrizione) return trovato;
  }
  return std::nullopt;
}

bool SulGiornale(Ambiente& ambiente, Data data) {
  return data <= ambiente.Max("dt", "UltimaDataLibro", {}, ambiente.ArchivioDi("tessarc")).Data();
}

void EliminaStorno(Ambiente& ambiente, const ArticoloOrigine& storno) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  tessarc.Esegui("delete * from Movimenti where " + ChiaveArticolo(storno));
  tessarc.Esegui("delete * from Articoli where " + ChiaveArticolo(storno));
}

std::int64_t ScriviStorno(Ambiente& ambiente, const SospesaStornabile& sospesa) {
  if (sospesa.incasso.Nulla() || !sospesa.ContoAParte()) return 0;
  ledger::RegistrazioneDueRighe r;
  r.anno = sospesa.incasso.Anno();
  r.dt = sospesa.incasso;
  r.causale = Rifila(ambiente.Config("CausaleErario"));
  if (r.causale.empty()) r.causale = sospesa.causaleIva;
  r.descrizione = Descrizione(sospesa);
  r.cfp = r.cfpA = r.testaCfp = r.testaCfpA = "P";
  r.conto = sospesa.contoIva;
  r.contoA = sospesa.contoIncassate;
  // The side across from that of the invoice clears its account.
  const bool dare = sospesa.iva.Negativo();
  (dare ? r.dare : r.avere) = sospesa.iva.Assoluto();
  r.testaConto = dare ? r.conto : r.contoA;
  r.testaContoA = dare ? r.contoA : r.conto;
  r.origine = ledger::Origine::StornoSospesa;
  r.dtFat = sospesa.dtFat;
  r.nFat = sospesa.nFat;
  return ledger::ScriviDueRighe(ambiente, r);
}

bool LevaStornoSospesa(Ambiente& ambiente, const ArticoloOrigine& articolo, LogContabile& log) {
  const auto sospesa = LeggiSospesa(ambiente, articolo);
  const auto storno = sospesa ? TrovaStorno(ambiente, *sospesa) : std::nullopt;
  if (!storno) return true;
  if (SulGiornale(ambiente, sospesa->incasso)) {
    log.avvisi.push_back("Lo storno dell'IVA differita, articolo n. " +
                         std::to_string(storno->numDoc) + " del " + sospesa->incasso.Testo() +
                         ", è già sul libro giornale e non è stato cambiato: controllarlo.");
    return false;
  }
  EliminaStorno(ambiente, *storno);
  return true;
}

void RimettiStornoSospesa(Ambiente& ambiente, const ArticoloOrigine& articolo, LogContabile& log) {
  const auto sospesa = LeggiSospesa(ambiente, articolo);
  const std::int64_t numero = sospesa ? ScriviStorno(ambiente, *sospesa) : 0;
  if (numero == 0) return;
  log.Riga("Storno dell'IVA differita : Articolo n. " + std::to_string(numero) + " EFFETTUATO");
}

}  // namespace fenalto::vat
