#include "vat/FatturaDiProva.h"

#include "core/sql/Criterio.h"

namespace fenalto::prova {
namespace {

void CreaRegistro(Archivio& tessarc, const char* cod, const char* tipo) {
  Metti(tessarc, "RegistriIva", "Cod", cod, "Tipo", tipo, "Descrizione",
        std::string("Registro ") + cod, "Conto", "170.001", "ContoCassa", "100.010",
        "ContoRicaviCorrisp", "700.010", "CodIva", "20");
}

/// Two halves, 30 and 60 days end of month.
void CreaPagamento(Archivio& tessarc, const char* cod, bool subito, bool aggiorna) {
  Metti(tessarc, "Pagamento", "Cod", cod, "Descrizione", cod, "NuovaCodifica", true, "AggiornaScad",
        aggiorna, "Conto", subito ? "100.010" : "", "Causale", subito ? "004" : "");
  for (const int mesi : {1, 2}) {
    Metti(tessarc, "Pagamento_r", "Cod", cod, "Rata", "0" + std::to_string(mesi), "PercImporto",
          I("50"), "DopoMesi", mesi, "FineMese", true, "Tipo", "02");
  }
}

std::string Giorno(const Valore& valore) {
  const Data data = valore.Data();
  return data.Nulla() ? "-" : data.Testo();
}

}  // namespace

FatturaDiProva::FatturaDiProva() {
  Transazione transazione(ambiente.Basi());
  CreaRegistro(Tessarc(), "6", "06");
  CreaRegistro(Tessarc(), "9", "09");
  CreaRegistro(Tessarc(), "11", "11");
  CreaPagamento(Tessarc(), "DUE", false, true);
  CreaPagamento(Tessarc(), "MISTO", true, true);
  CreaPagamento(Tessarc(), "FERMO", false, false);
  Tessarc().Esegui(
      "update Fornitori set ContropFatture='500.001',CodIva='22',Pagamento='DUE' where Cod='0001'");
  Tessarc().Esegui(
      "update Clienti set ContropFatture='700.001',CodIva='22',Pagamento='DUE' where Cod='0001'");
  transazione.Conferma();
}

bool FatturaDiProva::DigitaRiga(vat::RegistrazioneIva& fatture, const RigaFattura& riga) {
  if (!fatture.PNuovaRiga()) return false;
  fatture.Riga().Scrivi("Conto", riga.conto);
  fatture.Riga().Scrivi("CodIva", riga.codIva);
  fatture.Riga().Scrivi("Imponibile", riga.imponibile);
  fatture.RigaLasciata("Imponibile");
  return fatture.ConfermaRiga();
}

bool FatturaDiProva::Digita(vat::RegistrazioneIva& fatture, const FatturaDaScrivere& fattura) {
  if (!fatture.ScegliRegistro(fattura.riva) || !fatture.Nuovo()) return false;
  Scheda& testa = fatture.Testa();
  testa.Scrivi("Dt", fattura.dt);
  fatture.TestaLasciata("Dt");
  if (!fattura.parte.empty()) {
    testa.Scrivi("Contox", fattura.parte);
    fatture.TestaLasciata("Contox");
  }
  testa.Scrivi("DtFat", fattura.dt);
  fatture.TestaLasciata("DtFat");
  testa.Scrivi("NFat", fattura.nFat);
  fatture.TestaLasciata("NFat");
  testa.Scrivi("Pagamento", fattura.pagamento);
  for (const auto& [campo, valore] : fattura.altri) testa.Scrivi(campo, valore);
  for (const RigaFattura& riga : fattura.righe)
    if (!DigitaRiga(fatture, riga)) return false;
  return true;
}

std::int64_t FatturaDiProva::Inserisci(const FatturaDaScrivere& fattura) {
  vat::RegistrazioneIva fatture(ambiente);
  if (!Digita(fatture, fattura)) return 0;
  // The same purchase again isn't what these tests are about.
  Scheda& testa = fatture.Testa();
  const bool acquisto = testa.Testo("CFPx") == "F" && !testa.Testo("NFat").empty();
  if (acquisto && ambiente.Esiste("tessarc", "ZarticoliFatture",
                                  {{"CFP", "F"},
                                   {"Conto", testa.Testo("Contox")},
                                   {"NFat", testa.Testo("NFat")},
                                   {"DtFat", testa.Leggi("DtFat")}})) {
    dialoghi.Rispondera("di questo fornitore è già registrato", Risposta::Si);
  }
  if (!fatture.Conferma()) return 0;
  return fatture.NumeroConfermato();
}

std::string FatturaDiProva::Stringa(Importo importo) {
  return importo.Testo();
}

std::vector<std::string> FatturaDiProva::RigheDi(std::int64_t numDoc) {
  std::vector<std::string> righe;
  for (Rs r = Tessarc().Recordset("select * from Movimenti where " +
                                  sql::Criterio("Anno", "=", ambiente.Anno()) + " and " +
                                  sql::Criterio("NumDoc", "=", numDoc) + " order by Posi, Num");
       !r.Eof(); r.MoveNext()) {
    const auto t = [&](const char* campo) { return r.Fields(campo).Testo(); };
    const auto i = [&](const char* campo) { return Stringa(r.Fields(campo).Importo()); };
    std::string riga = t("Posi") + " " + t("Causale") + " " + t("CFP") + ":" + t("Conto") + " " +
                       i("ImpoDare") + "/" + i("ImpoAvere") + " " + t("CFPControp") + ":" +
                       t("ContoControp") + " t" + t("TIPORIGA") + " " + t("CodIva") + " " +
                       i("Imponibile") + "+" + i("Iva") + "+" + i("IvaInd") + " «" +
                       t("Descrizione") + "»";
    if (!t("Categoria").empty()) riga += " cat." + t("Categoria");
    if (!t("Commessa").empty()) riga += " com." + t("Commessa");
    if (r.Fields("DiversiControp").Booleano()) riga += " diversi";
    righe.push_back(riga);
  }
  return righe;
}

std::string FatturaDiProva::TestaDi(std::int64_t numDoc) {
  Rs r = Tessarc().Recordset("select * from Articoli where " +
                             sql::Criterio("Anno", "=", ambiente.Anno()) + " and " +
                             sql::Criterio("NumDoc", "=", numDoc));
  if (r.Eof()) return "non c'è";
  const auto t = [&](const char* campo) { return r.Fields(campo).Testo(); };
  std::string testa = Giorno(r.Fields("Dt")) + " " + t("CFP") + ":" + t("Conto") + " " + t("CfpA") +
                      ":" + t("ContoA") + " auto" + t("CREATOINAUTOMATICO") + " " + t("Riva") +
                      "/" + t("NProt") + " " + Giorno(r.Fields("DtFat")) + " «" + t("NFat") + "» " +
                      t("Pagamento");
  if (r.Fields("Ep").Booleano()) testa += " ep";
  if (r.Fields("NVarAnPrec").Booleano()) testa += " variazione";
  if (!r.Fields("DtIncasso").Data().Nulla()) testa += " incasso " + Giorno(r.Fields("DtIncasso"));
  return testa;
}

std::vector<std::string> FatturaDiProva::Scadenze() {
  std::vector<std::string> righe;
  for (Rs r = Scadenzario().Recordset("select * from Scadenze order by Articolo, Numero"); !r.Eof();
       r.MoveNext()) {
    const auto t = [&](const char* campo) { return r.Fields(campo).Testo(); };
    righe.push_back(t("Articolo") + " " + Giorno(r.Fields("Dt")) + " " +
                    Stringa(r.Fields("ImportoE").Importo()) + " " + t("CFP") + ":" + t("Conto") +
                    " " + t("Programma") + " " + t("Stato") + " " + t("Riva") + "/" + t("NProt") +
                    " " + t("NFat"));
  }
  return righe;
}

std::string FatturaDiProva::Conti() {
  const auto quanti = [](Archivio& archivio, const char* tabella) {
    return archivio.Singolo(std::string("select Count(*) from ") + tabella).Testo();
  };
  return quanti(Tessarc(), "Articoli") + " " + quanti(Tessarc(), "Movimenti") + " " +
         quanti(Scadenzario(), "Scadenze");
}

}  // namespace fenalto::prova
