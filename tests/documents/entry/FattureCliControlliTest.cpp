// The confirmation: its checks in their order, its questions, what follows from rows, what changed
// elsewhere meanwhile.
#include <functional>

#include "documents/entry/DocumentoDiProva.h"

namespace fenalto::prova {
namespace {

using documents::FattureCli;

/// What stops the confirmation, where it sends, and what mends it.
struct Passo {
  std::string atteso;
  std::string campo;
  std::function<void(FattureCli&)> rimedia;
};

class FattureCliControlliTest : public DocumentoDiProva {
 protected:
  static std::function<void(FattureCli&)> Scrive(const char* campo, const Valore& valore) {
    return [=](FattureCli& d) { d.Testa().Scrivi(campo, valore); };
  }
  void Percorri(FattureCli& d, const std::vector<Passo>& passi) {
    const std::string prima = Contenuto();
    for (const Passo& passo : passi) {
      SCOPED_TRACE(passo.atteso);
      Messaggi();
      std::string campo;
      EXPECT_FALSE(d.Conferma(&campo));
      EXPECT_EQ(SoloMessaggio(), passo.atteso);
      EXPECT_EQ(campo, passo.campo);
      EXPECT_EQ(Contenuto(), prima);
      EXPECT_TRUE(d.Nuova());
      passo.rimedia(d);
    }
    Messaggi();
    EXPECT_TRUE(d.Conferma()) << ::testing::PrintToString(Messaggi());
  }
};

TEST_F(FattureCliControlliTest, NellOrdine) {
  ASSERT_EQ(Inserisci({.tipo = "20",
                       .righe = {{"P1", I("1"), I("1")}},
                       .altri = {{"NumDoc", 7}, {"MagDest", "02"}}}),
            7);
  Config("MagObbligatorio", "1");
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.tipo = "20", .parte = "", .righe = {{"P1", I("1"), I("2")}}}));
  for (const auto& [campo, valore] : CampiDaScrivere{{"Mag", ""},
                                                     {"MagDest", ""},
                                                     {"NVarAnPrec", true},
                                                     {"NumDoc", -1},
                                                     {"Dt", Data()},
                                                     {"Pagamento", "BOH"},
                                                     {"CodiceVettore", "BOH"}}) {
    d.Testa().Scrivi(campo, valore);
  }
  const auto ignoto = [](const char* cosa) {
    return std::string(cosa) + ": il codice BOH non esiste, sceglierne uno dall'elenco (F2)";
  };
  Percorri(
      d, {{"manca CLIENTE o FORNITORE", "CliFor", Scrive("CliFor", "BOH")},
          {"inserire il codice del Magazzino da scaricare", "Mag", Scrive("Mag", "BOH")},
          {"E'stata spuntata la casella 'nota di variazione anni precedenti'\r\nse si tratta "
           "effettivamente di nota di variazione bisogna inserire il segno meno sugli importi",
           "NVarAnPrec", Scrive("NVarAnPrec", false)},
          {"il numero del documento va da 1 a 2147483647, o resta vuoto perché lo assegni il "
           "programma",
           "NumDoc", Scrive("NumDoc", 7)},
          {"è stato forzato un numero documento già esistente", "NumDoc", Scrive("NumDoc", 9)},
          {"manca la data", "Dt", Scrive("Dt", G(15, 3, 2024))},
          {"inserire il codice del magazzino di destinazione del trasferimento", "MagDest",
           Scrive("MagDest", "boh")},
          {"il magazzino di destinazione è lo stesso da scaricare", "MagDest",
           Scrive("MagDest", "BOH2")},
          {ignoto("Fornitore"), "CliFor", Scrive("CliFor", "9001")},
          {"Magazzino di destinazione: il codice BOH2 non esiste, sceglierne uno dall'elenco (F2)",
           "MagDest", Scrive("MagDest", "02")},
          {ignoto("Magazzino"), "Mag", Scrive("Mag", "01")},
          {ignoto("Pagamento"), "Pagamento", Scrive("Pagamento", "")},
          {ignoto("Vettore"), "CodiceVettore", Scrive("CodiceVettore", "")}});
  EXPECT_EQ(Quanti(), "4 4");
}

TEST_F(FattureCliControlliTest, AltriRifiuti) {
  FattureCli d(ambiente);
  Tessarc().Esegui("update TipiFattureCli set Fatturo=true where Cod='11'");
  ASSERT_TRUE(Digita(d, {.tipo = "11", .righe = {{"P1", I("1"), I("2")}}}));
  Percorri(d, {{"non si può inserire un fornitore in quanto si tratta di un ddt da fatturare",
                "Fatturo", Scrive("Fatturo", false)}});
  Config("MagObbligatorio", "1");
  Tessarc().Esegui("update TipiFattureCli set Mag='' where Cod='31'");
  ASSERT_TRUE(Digita(d, {.tipo = "30", .righe = {{"P1", I("1"), I("2")}}}));
  Percorri(d, {{"inserire il codice del magazzino nel tipo documento 31", "Mag",
                [&](FattureCli&) { Config("MagObbligatorio", "0"); }}});
}

TEST_F(FattureCliControlliTest, SenzaRigheEFuoriAnno) {
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.altri = {{"Dt", G(2, 1, 2025)}}}));
  EXPECT_EQ(SoloMessaggio(),
            "la data del documento 02/01/2025 non è dell'anno 2024: il documento resta dell'anno "
            "2024");
  EXPECT_TRUE(d.Conferma());
  // Told once.
  EXPECT_THAT(Messaggi(), IsEmpty());
  EXPECT_THAT(d.Fatto(), ElementsAre("Carico da fornitore n. 1 del 02/01/2025 memorizzato"));
  EXPECT_EQ(Quanti(), "1 0");
  EXPECT_EQ(d.Confermato(), (documents::IdentitaDocumento{"10", 2024, 1}));
}

TEST_F(FattureCliControlliTest, SpeseIncasso) {
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.tipo = "XF", .righe = {{"P1", I("2"), I("10")}}}));
  dialoghi.Rispondera("inserisco le spese incasso riba", Risposta::Si);
  EXPECT_FALSE(d.Conferma());
  EXPECT_THAT(Messaggi(), IsEmpty());
  ASSERT_EQ(d.Righe().size(), 2U);
  EXPECT_TRUE(d.Conferma());
  EXPECT_EQ(RigheDi("XF", 1), "100 P1 2 a 10 = 20 costo 2 | 200 SP 1 a 3.5 = 3.5");
  // Not on a delivery note, nor when refused.
  EXPECT_EQ(Inserisci({.tipo = "01", .righe = {{"P1", I("2"), I("10")}}}), 1);
  dialoghi.Rispondera("inserisco le spese", Risposta::No);
  EXPECT_EQ(Inserisci({.tipo = "XF", .righe = {{"P1", I("2"), I("10")}}}), 2);
}

TEST_F(FattureCliControlliTest, ScadenzeRigenerate) {
  Config("ScadenzePagamento", "1");
  Metti(Tessarc(), "Pagamento", "Cod", "DUE", "NuovaCodifica", true, "AggiornaScad", true);
  for (const int rata : {1, 2}) {
    Metti(Tessarc(), "Pagamento_r", "Cod", "DUE", "Rata", "0" + std::to_string(rata), "PercImporto",
          I("50"), "DopoMesi", rata, "DataFattura", true, "Tipo", "02");
  }
  ASSERT_EQ(Inserisci({.tipo = "XF",
                       .parte = "9002",
                       .righe = {{"P1", I("1"), I("100")}},
                       .altri = {{"Pagamento", "DUE"}, {"RaImporto", I("20")}}}),
            1);
  EXPECT_THAT(DellaTesta("XF", 1, "ScadPag").Testo(),
              AllOf(HasSubstr("51,00"), HasSubstr("15.04.24"), HasSubstr("15.05.24")));
}

TEST_F(FattureCliControlliTest, CodiciEliminatiNelFrattempo) {
  const auto cassa = NuovaStazione("CASSA");
  Archivio& altrove = cassa->ambiente->ArchivioDi("tessarc");
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(
      d,
      {.tipo = "01", .parte = "9002", .righe = {{"P1", I("1"), I("2")}, {"P2", I("1"), I("2")}}}));
  altrove.Esegui("update CodiciRiga set Cod='P2BIS' where Cod='P2'");
  std::string campo;
  EXPECT_FALSE(d.Conferma(&campo));
  EXPECT_EQ(SoloMessaggio(),
            "riga 200, Prodotto: il codice P2 non esiste, sceglierne uno dall'elenco (F2)");
  EXPECT_EQ(campo, "GrigliaRighe");
  altrove.Esegui("update CodiciRiga set Cod='P2' where Cod='P2BIS'");
  altrove.Esegui("update TipiFattureCli set CausaleMag='' where Cod='01'");
  EXPECT_FALSE(d.Conferma());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("il tipo documento 01 è stato cambiato"));
  altrove.Esegui("delete * from TipiFattureCli where Cod='01'");
  EXPECT_FALSE(d.Conferma());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("il tipo documento 01 è stato eliminato"));
  EXPECT_EQ(Quanti(), "0 0");
  EXPECT_EQ(d.Righe().size(), 2U);
}

TEST_F(FattureCliControlliTest, CodiciCheNonCiSonoPiu) {
  ASSERT_EQ(Inserisci({.righe = {{"P1", I("1"), I("2")}, {"P2", I("1"), I("2")}}}), 1);
  Tessarc().Esegui("delete * from CodiciRiga where Cod='P2'");
  FattureCli d(ambiente);
  // It was so when it was opened: the rest can be changed.
  ASSERT_TRUE(d.Apri("10", 1));
  ASSERT_TRUE(d.ApriRiga(1));
  d.Riga().Scrivi("Quantita", I("3"));
  d.RigaLasciata("Quantita");
  ASSERT_TRUE(d.ConfermaRiga()) << ::testing::PrintToString(Messaggi());
  ASSERT_TRUE(d.Conferma()) << ::testing::PrintToString(Messaggi());
  ASSERT_TRUE(d.Apri("10", 1));
  Tessarc().Esegui("delete * from CodiciRiga where Cod='P1'");
  Messaggi();
  EXPECT_FALSE(d.Conferma());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("riga 100, Prodotto: il codice P1"));
}

TEST_F(FattureCliControlliTest, DueStazioniUnaSerie) {
  const auto cassa = NuovaStazione("CASSA");
  FattureCli qui(ambiente);
  FattureCli la(*cassa->ambiente);
  const DocumentoDaDigitare uno{.righe = {{"P1", I("1"), I("2"), {{"Lottox", "A"}}}}};
  DocumentoDaDigitare forzato = uno;
  forzato.altri = {{"NumDoc", 2}};
  forzato.righe[0].altri = {{"Lottox", "B"}};
  ASSERT_TRUE(Digita(qui, uno));
  ASSERT_TRUE(Digita(la, forzato));
  EXPECT_EQ(qui.ProbabileNumDoc(), 1);
  EXPECT_EQ(la.ProbabileNumDoc(), 1);
  ASSERT_TRUE(qui.Conferma());
  ASSERT_TRUE(la.Conferma());
  Messaggi();
  EXPECT_THAT(RigheDi("10", 2), HasSubstr("nl1:2"));
  // A number taken by the other station between the two looks.
  ASSERT_TRUE(Digita(qui, {.righe = {{"P1", I("1"), I("2")}}, .altri = {{"NumDoc", 9}}}));
  ASSERT_TRUE(Digita(la, {.righe = {{"P1", I("1"), I("2")}}, .altri = {{"NumDoc", 9}}}));
  ASSERT_TRUE(la.Conferma());
  Messaggi();
  EXPECT_FALSE(qui.Conferma());
  EXPECT_EQ(SoloMessaggio(), "è stato forzato un numero documento già esistente");
  EXPECT_EQ(Discordi(), 0);
}

TEST_F(FattureCliControlliTest, SegniSuOrdiniCommesseEPrezziDelFornitore) {
  for (const char* tabella : {"OrdiniFor_r", "OrdiniCli_r"}) {
    for (const int posi : {1, 2}) {
      Metti(Tessarc(), tabella, "TipoDoc", "O", "NumDoc", 5, "Posi", posi, "CodiceRiga", "P1",
            "Quantita", I("9"));
    }
  }
  const auto conOrdine = [](std::int64_t ordine, std::int64_t posi, bool saldo) {
    return documents::ValoriRiga{.codiceRiga = "P1",
                                 .quantita = I("2"),
                                 .prezzo = I("6"),
                                 .sc1 = I("5"),
                                 .ordine = ordine,
                                 .posiOrdine = posi,
                                 .ordineSaldato = saldo};
  };
  FattureCli d(ambiente);
  for (const auto& [tipo, tabella] :
       {std::pair("10", "OrdiniFor_r"), std::pair("XN", "OrdiniCli_r")}) {
    SCOPED_TRACE(tipo);
    ASSERT_TRUE(Digita(d, {.tipo = tipo}));
    EXPECT_FALSE(d.RigheDa({conOrdine(5, 1, true), conOrdine(5, 2, false), conOrdine(8, 3, true)}));
    Messaggi();
    ASSERT_TRUE(d.Conferma());
    EXPECT_THAT(Messaggi(), Contains("attenzione : non trovo più l'ordine 8 posi 3\r\nper "
                                     "memorizzare ordinesaldato=vero"));
    EXPECT_EQ(Tessarc()
                  .Singolo(std::string("select Posi from ") + tabella + " where OrdineSaldato=true")
                  .Intero(),
              1);
  }
  Rs prezzo = Tessarc().Recordset("select Prezzo, Sc1 from prodottiFor_r where Cod='P1'");
  EXPECT_EQ(prezzo.Fields(0).Importo(), I("6"));
  EXPECT_EQ(prezzo.Fields(1).Importo(), I("5"));
  // Deleting tells of the orders first.
  ASSERT_TRUE(d.Apri("XN", 1));
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO 1", Risposta::Si);
  ASSERT_TRUE(d.Elimina());
  EXPECT_THAT(Messaggi(), ElementsAre(HasSubstr("questo documento ha scaricato ordini")));
}

TEST_F(FattureCliControlliTest, CambiataSoloLaTestaLeRigheSeguono) {
  ASSERT_EQ(Inserisci({.righe = {{"P1", I("1"), I("2")}, {"P2", I("1"), I("2")}}}), 1);
  FattureCli d(ambiente);
  ASSERT_TRUE(d.Apri("10", 1));
  Campi(d, {{"Dt", G(20, 3, 2024)}, {"Mag", "02"}, {"NumDocCarico", "B/7"}});
  ASSERT_TRUE(d.Conferma());
  EXPECT_EQ(Discordi(), 0);
  EXPECT_EQ(Esistenza("P1", "02"), "1");
  // Another station has erased it meanwhile.
  ASSERT_TRUE(d.Apri("10", 1));
  Tessarc().Esegui("delete * from FattureCli where TipoDoc='10'");
  Messaggi();
  EXPECT_FALSE(d.Conferma());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("il documento n. 1 non c'è più"));
}

TEST_F(FattureCliControlliTest, CinquemilaRighe) {
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.tipo = "XN", .parte = "9002"}));
  std::vector<documents::ValoriRiga> molte(
      5'000, {.codiceRiga = "P1", .quantita = I("1"), .prezzo = I("0.01")});
  ASSERT_FALSE(d.RigheDa(molte));
  EXPECT_TRUE(d.Letto("8001", true));
  EXPECT_EQ(d.Totali().totRighe, I("50.01"));
  ASSERT_TRUE(d.Conferma());
  EXPECT_EQ(Quanti(), "1 5000");
  EXPECT_EQ(Esistenza("P1"), "-5001");
}

}  // namespace
}  // namespace fenalto::prova
