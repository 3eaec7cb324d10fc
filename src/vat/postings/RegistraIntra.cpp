// The second half of a reverse-charge registration, and the giro that gives its cost to the foreign
// supplier.
#include <algorithm>
#include <utility>

#include "core/values/Aritmetica.h"
#include "core/values/Testo.h"
#include "duedates/schedules/CreaScadenze.h"
#include "vat/postings/DatiIva.h"
#include "vat/postings/GiroFornitore.h"
#include "vat/postings/RegistraIntraInterno.h"

namespace fenalto::vat {
namespace {

/// Swaps the sides, so that the two halves cancel on every account, and makes the amount greater on
/// the side where it stands.
void Specchia(RigaIva& riga, Importo inPiu) {
  std::swap(riga.impoDare, riga.impoAvere);
  if (riga.impoAvere.Zero()) {
    riga.impoDare += inPiu;
  } else {
    // A credit note, shown without its sign on the side across.
    riga.impoAvere -= inPiu;
  }
}

/// What a code doesn't let deduct of the VAT of a row; that typed by hand where there is some.
Importo Indetraibile(Ambiente& ambiente, const RigaIva& riga) {
  if (!riga.ivaInd.Zero()) return riga.ivaInd;
  const Importo percento =
      Nz(ambiente.Cerca("tessarc", "CodiciIva", {{"Cod", riga.codIva}}, "PercInd")).Importo();
  return IvaIndetraibile(riga.iva, percento, ambiente.Euro());
}

}  // namespace

std::string DescrizioneGiroIntra(const std::string& nFat, Data dtFat) {
  return "FT.INTRACEE" + nFat + "/" + dtFat.Testo();
}

RigheIntra CopiaRigheIntra(Ambiente& ambiente, const ArticoloOrigine& origine,
                           const std::string& rivaIntra, std::int64_t numDoc) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::string contoIva =
      NzStr(ambiente.Cerca("tessarc", "RegistriIva", {{"Cod", rivaIntra}}, "Conto"));
  RigheIntra copia;
  Importo tolta;
  // The taxable rows first: the VAT row is less by what they can't deduct.
  std::vector<RigaIva> righe = LeggiRigheIva(tessarc, origine.anno, origine.numDoc);
  std::ranges::stable_sort(righe, {}, &RigaIva::tipoRiga);
  for (RigaIva& riga : righe) {
    if (riga.tipoRiga == TipoRigaIva::Altra) continue;
    const int cifra = static_cast<int>(riga.tipoRiga) - static_cast<int>(TipoRigaIva::Imponibile);
    riga.numDoc = numDoc;
    riga.causale = rivaIntra + std::to_string(cifra + 1);
    if (riga.tipoRiga == TipoRigaIva::Imponibile) {
      // What was typed is already among the columns; owed it is all the same.
      const Importo indetraibile = Indetraibile(ambiente, riga);
      Specchia(riga, indetraibile);
      riga.iva -= indetraibile - riga.ivaInd;
      riga.ivaInd = indetraibile;
      copia.costo += riga.imponibile;
      if (!indetraibile.Zero()) copia.indetraibile[riga.conto] += indetraibile;
      tolta += indetraibile;
    } else if (riga.tipoRiga == TipoRigaIva::Iva) {
      Specchia(riga, -tolta);
      // More isn't deducted than stands on the row: it is owed, or given back by a credit note.
      if (riga.impoDare.Negativo() && tolta > Importo()) {
        riga.impoAvere = -std::exchange(riga.impoDare, Importo());
      } else if (riga.impoAvere.Negativo() && tolta < Importo()) {
        riga.impoDare = -std::exchange(riga.impoAvere, Importo());
      }
      riga.conto = contoIva;
    } else {
      Specchia(riga, {});
      copia.posiParte = riga.posi;
    }
    ScriviRigaIva(tessarc, riga);
  }
  return copia;
}

void ScriviGiroIndetraibile(Ambiente& ambiente, const GiroFornitore& costo,
                            const std::string& conto, Importo importo, LogContabile& log) {
  Rs articolo = LeggiArticolo(ambiente, costo.articolo);
  ledger::RegistrazioneDueRighe r;
  r.anno = costo.articolo.anno;
  r.dt = articolo.Fields("Dt").Data();
  r.causale = costo.causale;
  r.descrizione = costo.descrizione;
  r.cfp = r.cfpA = r.testaCfp = r.testaCfpA = "P";
  r.conto = r.testaConto = costo.conto;
  r.contoA = r.testaContoA = conto;
  r.dare = importo;
  r.origine = costo.origine;
  r.dtFat = articolo.Fields("DtFat").Data();
  r.nFat = articolo.Fields("NFat").Testo();
  r.seguitoDi = costo.documento;
  log.Riga("Registraz.Costo IVA indetraibile : Articolo n. " +
           std::to_string(ledger::ScriviDueRighe(ambiente, r)) + " EFFETTUATA");
}

bool RegistraIntra(Ambiente& ambiente, const ArticoloOrigine& origine, const DatiIntra& dati,
                   LogContabile& log) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  Rs articolo = LeggiArticolo(ambiente, origine);
  if (articolo.Eof()) {
    log.Riga("registraz.automatica intra : NON ESISTE L'ARTICOLO del registro 04");
    return false;
  }
  if (dati.rivaIntra.empty()) {
    log.Riga(
        "registraz.automatica intra : mancano il registro iva fatture acqusti intra :impossibile "
        "effettuare la registrazione automatica");
    return false;
  }
  const std::int64_t numDoc = ledger::ProssimoNumDoc(ambiente, origine.anno);
  const std::int64_t nProt = ProssimoNProt(ambiente, origine.anno, dati.rivaIntra);
  std::vector<Coppia> testa = {
      {"NumDoc", numDoc},
      {"CFP", "F"},
      {"Riva", dati.rivaIntra},
      {"NProt", nProt},
      {"CREATOINAUTOMATICO", static_cast<int>(ledger::Origine::ReverseCharge)}};
  for (const char* campo : {"Anno", "Dt", "Conto", "CfpA", "ContoA", "DtFat", "NFat"}) {
    testa.emplace_back(campo, articolo.Fields(campo));
  }
  testa.emplace_back("AnnoOrigine", origine.anno);
  testa.emplace_back("NumDocOrigine", origine.numDoc);
  tessarc.Inserisci("Articoli", testa);
  const RigheIntra copia = CopiaRigheIntra(ambiente, origine, dati.rivaIntra, numDoc);
  log.Riga("Registraz.IVA su registro " + dati.rivaIntra + ": N.Prot." + std::to_string(nProt) +
           " - Articolo " + std::to_string(numDoc) + " EFFETTUATA");
  if (dati.senzaGiroCosto) return true;
  if (dati.causale.empty() || dati.fornitore.empty() || dati.contoCosti.empty()) {
    log.Riga(
        "registraz.automatica intra 'costo a fornitore' : mancano dati,impossibile effettuare la "
        "registrazione automatica");
    return false;
  }
  GiroFornitore giro;
  giro.articolo = {origine.anno, numDoc};
  giro.documento = origine;
  giro.cfp = "P";
  giro.conto = dati.contoCosti;
  giro.fornitore = dati.fornitore;
  giro.importo = copia.costo;
  giro.posi = copia.posiParte;
  giro.causale = dati.causale;
  giro.pagamento = dati.pagamento;
  giro.descrizione =
      DescrizioneGiroIntra(articolo.Fields("NFat").Testo(), articolo.Fields("DtFat").Data());
  giro.programma = "fattintra";
  giro.origine = ledger::Origine::ReverseCharge;
  giro.testo = "Registraz.Costo : Articolo n. ";
  ScriviGiroFornitore(ambiente, giro, log);
  for (const auto& [conto, importo] : copia.indetraibile) {
    if (!UgualeTesto(conto, dati.contoCosti))
      ScriviGiroIndetraibile(ambiente, giro, conto, importo, log);
  }
  return true;
}

}  // namespace fenalto::vat
