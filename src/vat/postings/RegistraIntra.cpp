// The second half of a reverse-charge registration, and the giro that gives its cost to the foreign
// supplier.
#include "duedates/schedules/CreaScadenze.h"
#include "vat/postings/GiroFornitore.h"
#include "vat/postings/RegistrazioniAutomatiche.h"

namespace fenalto::vat {
namespace {

constexpr int kImponibile = 3;
constexpr int kIva = 4;
constexpr int kParte = 5;

/// What the giro of the cost needs to know of the rows copied.
struct CopiaRighe {
  Importo costo;  ///< debit minus credit of the taxable rows written
  std::int64_t posiParte = 0;
};

/// A row of the register "04" on the register "05": sides swapped, causal of the other register,
/// and on the VAT row its account. The two halves so cancel on every account.
void CopiaRiga(Archivio& tessarc, const Rs& riga, const std::string& contoIva,
               const std::string& causale, std::int64_t numDoc) {
  std::vector<Coppia> campi = {{"NumDoc", numDoc},
                               {"Causale", causale},
                               {"ImpoDare", riga.Fields("ImpoAvere")},
                               {"ImpoAvere", riga.Fields("ImpoDare")}};
  for (const char* campo :
       {"Anno", "Posi", "Descrizione", "CFP", "CodIva", "Imponibile", "Iva", "IvaInd", "CFPControp",
        "ContoControp", "Categoria", "Commessa", "TIPORIGA"}) {
    campi.emplace_back(campo, riga.Fields(campo));
  }
  const bool iva = riga.Fields("TIPORIGA").Intero() == kIva;
  campi.emplace_back("Conto", iva ? Valore(contoIva) : riga.Fields("Conto"));
  tessarc.Inserisci("Movimenti", campi);
}

CopiaRighe CopiaTutte(Ambiente& ambiente, const std::string& chiave, const std::string& riva,
                      std::int64_t numDoc) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::string contoIva =
      NzStr(ambiente.Cerca("tessarc", "RegistriIva", {{"Cod", riva}}, "Conto"));
  CopiaRighe copia;
  for (const int tipo : {kImponibile, kIva, kParte}) {
    const std::string causale = riva + std::to_string(tipo - kImponibile + 1);
    for (Rs riga = tessarc.Recordset("select * from movimenti where " + chiave +
                                     " and tiporiga=" + std::to_string(tipo) + " order by posi");
         !riga.Eof(); riga.MoveNext()) {
      CopiaRiga(tessarc, riga, contoIva, causale, numDoc);
      if (tipo == kImponibile) {
        copia.costo += riga.Fields("ImpoAvere").Importo() - riga.Fields("ImpoDare").Importo();
      }
      if (tipo == kParte) copia.posiParte = riga.Fields("Posi").Intero();
    }
  }
  return copia;
}

}  // namespace

bool RegistraIntra(Ambiente& ambiente, const ArticoloOrigine& origine, const DatiIntra& dati,
                   LogContabile& log) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::string chiave = ChiaveArticolo(origine);
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
  tessarc.Inserisci("Articoli", testa);
  const CopiaRighe copia = CopiaTutte(ambiente, chiave, dati.rivaIntra, numDoc);
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
  giro.cfp = "P";
  giro.conto = dati.contoCosti;
  giro.fornitore = dati.fornitore;
  giro.importo = copia.costo;
  giro.posi = copia.posiParte;
  giro.causale = dati.causale;
  giro.pagamento = dati.pagamento;
  giro.descrizione = "FT.INTRACEE" + articolo.Fields("NFat").Testo() + "/" +
                     articolo.Fields("DtFat").Data().Testo();
  giro.programma = "fattintra";
  giro.origine = ledger::Origine::ReverseCharge;
  giro.testo = "Registraz.Costo : Articolo n. ";
  ScriviGiroFornitore(ambiente, giro, log);
  return true;
}

}  // namespace fenalto::vat
