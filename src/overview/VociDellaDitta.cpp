#include "overview/VociDellaDitta.h"

#include "core/values/PrimaLinea.h"
#include "overview/UltimiRecord.h"

namespace fenalto::overview {
namespace {

constexpr int kLivelloConti = 99;
constexpr int kLivelloParti = 30;  // of products too

void LeggiConti(Ambiente& ambiente, std::vector<Voce>& voci) {
  for (Rs conti = ambiente.ArchivioDi("tessarc").Recordset(
           "SELECT Cod, Descrizione FROM Conti WHERE CFP='P'");
       !conti.Eof(); conti.MoveNext()) {
    Voce voce;
    voce.genere = GenereVoce::Conto;
    voce.codice = conti.Fields(0).Testo();
    voce.nome = conti.Fields(1).Testo();
    voce.rinvio = AlConto("P", voce.codice);
    voce.archivio = AllArchivio("CONTI", voce.codice);
    voci.push_back(std::move(voce));
  }
}

/// Found by either name, by the nickname and by the VAT number too.
void LeggiParti(Ambiente& ambiente, bool clienti, std::vector<Voce>& voci) {
  const std::string tabella = clienti ? "Clienti" : "Fornitori";
  for (Rs parti = ambiente.ArchivioDi("tessarc").Recordset(
           "SELECT Cod, ragsoc1, ragsoc2, Pseudonimo, piva, localita FROM " + tabella);
       !parti.Eof(); parti.MoveNext()) {
    Voce voce;
    voce.genere = clienti ? GenereVoce::Cliente : GenereVoce::Fornitore;
    voce.codice = parti.Fields(0).Testo();
    voce.nome = parti.Fields(1).Testo();
    for (const std::size_t altro : {2U, 3U, 4U}) {
      const std::string testo = parti.Fields(altro).Testo();
      if (!testo.empty()) voce.sinonimi += (voce.sinonimi.empty() ? "" : "; ") + testo;
    }
    voce.percorso = parti.Fields(5).Testo();
    const std::string classe = clienti ? "C" : "F";
    voce.rinvio = {.funzione = "InterrCliFor", .codice = voce.codice, .classe = classe};
    voce.archivio = AllArchivio(clienti ? "CLIENTI" : "FORNITORI", voce.codice);
    voci.push_back(std::move(voce));
  }
}

/// Found by the barcode too; those out of use say so.
void LeggiProdotti(Ambiente& ambiente, std::vector<Voce>& voci) {
  for (Rs prodotti = ambiente.ArchivioDi("tessarc").Recordset(
           "SELECT Cod, Descrizione, Barcode, FuoriUso FROM CodiciRiga");
       !prodotti.Eof(); prodotti.MoveNext()) {
    Voce voce;
    voce.genere = GenereVoce::Prodotto;
    voce.codice = prodotti.Fields(0).Testo();
    voce.nome = PrimaLinea(prodotti.Fields(1).Testo());
    voce.sinonimi = prodotti.Fields(2).Testo();
    if (prodotti.Fields(3).Booleano()) voce.percorso = "fuori uso";
    voce.rinvio = AllArchivio("CODICIRIGA", voce.codice);
    voci.push_back(std::move(voce));
  }
}

}  // namespace

std::vector<Voce> LeggiVociDitta(Ambiente& ambiente) {
  std::vector<Voce> voci;
  if (ambiente.HaDiritto(kLivelloConti)) LeggiConti(ambiente, voci);
  if (ambiente.HaDiritto(kLivelloParti)) {
    LeggiParti(ambiente, true, voci);
    LeggiParti(ambiente, false, voci);
    LeggiProdotti(ambiente, voci);
  }
  return voci;
}

std::vector<Voce> LeggiVociRecenti(Ambiente& ambiente, std::size_t quante) {
  std::vector<Voce> voci;
  for (RecordToccato& record : UltimiRecord(ambiente, quante)) {
    Voce voce;
    voce.genere = GenereVoce::Recente;
    voce.nome = std::move(record.titolo);
    voce.percorso = record.genere + " " + record.dettaglio;
    voce.rinvio = std::move(record.rinvio);
    voci.push_back(std::move(voce));
  }
  return voci;
}

}  // namespace fenalto::overview
