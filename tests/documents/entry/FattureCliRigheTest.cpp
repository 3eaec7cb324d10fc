// The open row: what is proposed, its checks in their order, rows from sources and scanners.
#include "documents/entry/DocumentoDiProva.h"

namespace fenalto::prova {
namespace {

using documents::FattureCli;

class FattureCliRigheTest : public DocumentoDiProva {
 protected:
  void Comincia(FattureCli& d, const char* tipo, const char* parte = "9001") {
    ASSERT_TRUE(Digita(d, {.tipo = tipo, .parte = parte}));
    Messaggi();
    ASSERT_TRUE(d.PNuovaRiga());
  }
  static void Lascia(FattureCli& d, const char* campo, const Valore& valore) {
    d.Riga().Scrivi(campo, valore);
    d.RigaLasciata(campo);
  }
  static std::string R(FattureCli& d, const char* campo) { return d.Riga().Leggi(campo).Neutro(); }
};

TEST_F(FattureCliRigheTest, PropostaSulLatoClienti) {
  Inserisci({.tipo = "10", .parte = "9001", .righe = {{"P2", I("10"), I("1.5")}}});
  FattureCli d(ambiente);
  Comincia(d, "01");
  EXPECT_EQ(d.NotaRiga(), "nuova riga");
  EXPECT_EQ(R(d, "Posi"), "100");
  EXPECT_EQ(R(d, "CodIva"), "22");
  EXPECT_EQ(R(d, "Conto"), "700.001");
  EXPECT_EQ(R(d, "Prov"), "4");
  // A bar code is taken as its product; what the product leaves out stays as the type has it.
  Lascia(d, "CodiceRiga", "8002");
  EXPECT_EQ(R(d, "CodiceRiga"), "P2");
  EXPECT_EQ(R(d, "um"), "KG");
  EXPECT_EQ(R(d, "CodIva"), "10");
  EXPECT_EQ(R(d, "Conto"), "700.001");
  EXPECT_EQ(R(d, "Costo"), "1.5");
  EXPECT_EQ(R(d, "Prezzo"), "0");
  // Without loads the typed cost; the customer's exemption goes before the product's code.
  Tessarc().Esegui("update Clienti set EsenzioneIva='E10' where Cod='9001'");
  Campi(d, {{"CliFor", "9001"}});
  Lascia(d, "CodiceRiga", "p1");
  EXPECT_EQ(R(d, "CodiceRiga"), "P1");
  EXPECT_EQ(R(d, "CodIva"), "E10");
  EXPECT_EQ(R(d, "Costo"), "2");
  EXPECT_THAT(Messaggi(), IsEmpty());
  Lascia(d, "CodiceRiga", "P3");
  EXPECT_EQ(SoloMessaggio(), "il prodotto P3 è fuori uso");
}

TEST_F(FattureCliRigheTest, PropostaSulLatoFornitori) {
  FattureCli d(ambiente);
  Comincia(d, "10");
  Lascia(d, "Quantita", I("3"));
  Lascia(d, "CodiceRiga", "P1");
  EXPECT_EQ(R(d, "Descrizione"), "Vite 4x30\ncod.forn.VT430");
  EXPECT_EQ(R(d, "Prezzo"), "5");
  EXPECT_EQ(R(d, "Sc1"), "10");
  EXPECT_EQ(R(d, "Importo"), "13.5");
  EXPECT_EQ(R(d, "QuantitaA"), "3");
  EXPECT_EQ(R(d, "PrezzoA"), "5");
  // The purchase side follows, until it has figures of its own.
  Lascia(d, "Prezzo", I("6"));
  EXPECT_EQ(R(d, "PrezzoA"), "6");
  Lascia(d, "PrezzoA", I("72"));
  Lascia(d, "Prezzo", I("7"));
  EXPECT_EQ(R(d, "PrezzoA"), "72");
  ASSERT_TRUE(d.ConfermaRiga());
  Config("FornNonPrevisto", "1");
  Config("PropongoCostoDigitato", "1");
  ASSERT_TRUE(d.PNuovaRiga());
  Lascia(d, "CodiceRiga", "P1");
  EXPECT_EQ(R(d, "Prezzo"), "2");
  EXPECT_EQ(R(d, "Sc1"), "0");
  EXPECT_THAT(Messaggi(), IsEmpty());
  Config("PropongoCostoDigitato", "0");
  Lascia(d, "CodiceRiga", "P2");
  EXPECT_EQ(SoloMessaggio(), "Il fornitore 9001 non è previsto sul prodotto P2");
}

TEST_F(FattureCliRigheTest, UltimoCostoEDistinta) {
  Inserisci({.righe = {{"P2", I("10"), I("1.5")}, {"DB", I("1"), I("8")}}});
  FattureCli d(ambiente);
  Comincia(d, "10");
  Lascia(d, "CodiceRiga", "P2");
  EXPECT_EQ(R(d, "Prezzo"), "1.5");
  d.AnnullaRiga();
  d.Abbandona();
  Comincia(d, "30");
  for (const auto& [risposta, prezzo] : {std::pair(Risposta::No, "8"), {Risposta::Si, "8.5"}}) {
    dialoghi.Rispondera(
        "DB ha distinta base\nCALCOLO il COSTO\n(somma dell'ultimo costo dei componenti x quantità "
        "db)\n(la manodopera si può inserire come un elemento nella DB)",
        risposta);
    d.AnnullaRiga();
    ASSERT_TRUE(d.PNuovaRiga());
    Lascia(d, "CodiceRiga", "DB");
    EXPECT_EQ(R(d, "Prezzo"), prezzo);  // two at 2, three at 1.5
  }
}

/// A refusal of a row, and what is typed to meet it.
struct RigaRifiutata {
  const char* tipo;
  CampiDaScrivere campi;
  std::string atteso;
  const char* campo;
};

TEST_F(FattureCliRigheTest, Rifiuti) {
  Config("LottoDtScad", "1");
  const std::vector<RigaRifiutata> casi = {
      {"10",
       {{"Lottox", "L1"}},
       "impostare data scadenza lotto\n(per non gestire la data scadenza > modifica impostazioni "
       "ditta)",
       "DtScad"},
      {"10",
       {{"Lottox", "L1"}, {"DtScad", G(1, 1, 2026)}},
       "è necessario un codice prodotto se si indica il lotto",
       "CodiceRiga"},
      {"10",
       {{"CodiceRiga", "P2"}, {"Prezzo", I("3")}},
       "se si imposta il Prezzo bisogna anche impostare la Quantita",
       "Quantita"},
      {"XF", {{"CodiceRiga", "P3"}, {"Quantita", I("1")}}, "manca codice iva", "CodIva"},
      {"01",
       {{"CodiceRiga", "P2"}, {"Quantita", I("1")}, {"CodIva", ""}},
       "manca codice iva",
       "CodIva"},
      {"10",
       {{"Descrizione", "x"}, {"CodIva", "04I"}},
       "non si possono utilizzare codici iva con iva indetraibile",
       "CodIva"},
      {"10", {}, "la riga è vuota: scrivere un prodotto o una descrizione", "CodiceRiga"},
      {"10",
       {{"CodiceRiga", "BOH'*"}, {"Quantita", I("1")}},
       "Prodotto: il codice BOH'* non esiste, sceglierne uno dall'elenco (F2)",
       "CodiceRiga"},
      {"10",
       {{"CodiceRiga", "P2"}, {"CodIva", "BOH"}},
       "Codice iva: il codice BOH non esiste, sceglierne uno dall'elenco (F2)",
       "CodIva"},
      {"10",
       {{"CodiceRiga", "P2"}, {"Conto", "BOH"}},
       "Conto: il codice BOH non esiste, sceglierne uno dall'elenco (F2)",
       "Conto"},
      {"10",
       {{"CodiceRiga", "P2"}, {"Quantita", I("1")}, {"Sc2", I("100.01")}},
       "lo sconto non può superare il 100 per cento",
       "Sc2"},
      {"10",
       {{"CodiceRiga", "P2"}, {"Quantita", I("900000000000")}, {"Prezzo", I("900000000")}},
       "riga 100: importo fuori dal campo ammesso",
       "Quantita"}};
  for (const RigaRifiutata& caso : casi) {
    SCOPED_TRACE(caso.atteso);
    FattureCli d(ambiente);
    Comincia(d, caso.tipo, "9001");
    for (const auto& [campo, valore] : caso.campi) Lascia(d, campo.c_str(), valore);
    Messaggi();
    std::string campo;
    EXPECT_FALSE(d.ConfermaRiga(&campo));
    EXPECT_EQ(SoloMessaggio(), caso.atteso);
    EXPECT_EQ(campo, caso.campo);
    EXPECT_EQ(d.StatoCorrente(), FattureCli::Stato::RigaAperta);
    EXPECT_TRUE(d.Righe().empty());
    d.Abbandona();
  }
}

TEST_F(FattureCliRigheTest, SiAccettano) {
  FattureCli d(ambiente);
  // Opening stock may have a price alone; text stands alone; a discount of 100, one below zero and
  // a negative quantity are figures as others.
  ASSERT_TRUE(Digita(d, {.tipo = "EI",
                         .parte = "",
                         .righe = {{"P1", {}, I("3")},
                                   {"", {}, {}, {{"Descrizione", "solo testo\nsu due righe"}}},
                                   {"P2", I("2"), I("9"), {{"Sc1", I("100")}}},
                                   {"P2", I("-2"), I("9"), {{"Sc1", I("-10")}}}}}));
  EXPECT_EQ(d.Totali().totRighe, I("-19.8"));
  ASSERT_TRUE(d.Conferma());
  EXPECT_EQ(DellaTesta("EI", 1, "CliFor").Testo(), "");
  EXPECT_EQ(Esistenza("P2"), "0");
}

TEST_F(FattureCliRigheTest, PosizioniEOrdine) {
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.righe = {{"P1", I("1")}, {"P2", I("1"), I("1")}}}));
  ASSERT_TRUE(d.PNuovaRiga());
  EXPECT_EQ(R(d, "Posi"), "300");
  Lascia(d, "CodiceRiga", "P2");
  Lascia(d, "Posi", 200);
  std::string campo;
  EXPECT_FALSE(d.ConfermaRiga(&campo));
  EXPECT_EQ(SoloMessaggio(), "posizione già esistente");
  EXPECT_EQ(campo, "Posi");
  EXPECT_FALSE(d.Conferma());
  EXPECT_EQ(SoloMessaggio(), "confermare o annullare prima la riga");
  Lascia(d, "Posi", 150);
  ASSERT_TRUE(d.ConfermaRiga());
  EXPECT_EQ(d.Righe()[1].posi, 150);
  ASSERT_TRUE(d.ApriRiga(1));
  dialoghi.Rispondera("Conferma eliminazione RIGA ?", Risposta::No);
  EXPECT_FALSE(d.EliminaRiga());
  dialoghi.Rispondera("Conferma eliminazione RIGA ?", Risposta::Si);
  EXPECT_TRUE(d.EliminaRiga());
  EXPECT_EQ(d.Righe().size(), 2U);
}

TEST_F(FattureCliRigheTest, Lotti) {
  const auto carica = [&](const char* lotto) {
    return DocumentoDaDigitare{.righe = {{"P2", I("4"), I("1"), {{"Lottox", lotto}}}}};
  };
  EXPECT_EQ(Inserisci(carica("A")), 1);
  dialoghi.Rispondera("Lotto già caricato\nproseguo ugualmente", Risposta::Si);
  EXPECT_EQ(Inserisci(carica("a")), 2);
  EXPECT_EQ(RigheDi("10", 1) + RigheDi("10", 2), "100 P2 4 a 1 = 4 nl1:1100 P2 4 a 1 = 4 nl1:2");
  // The series goes on when its last bearer is gone, even with its year.
  FattureCli d(ambiente);
  ASSERT_TRUE(d.Apri("10", 2));
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO 2", Risposta::Si);
  ASSERT_TRUE(d.Elimina());
  EXPECT_EQ(Inserisci(carica("B")), 2);
  EXPECT_THAT(RigheDi("10", 2), HasSubstr("nl1:3"));
  // Opening stock never opens one.
  EXPECT_EQ(Inserisci({.tipo = "EI", .parte = "", .righe = carica("C").righe}), 1);
  EXPECT_THAT(RigheDi("EI", 1), Not(HasSubstr("nl1")));
  // A lot stays on its row, which may be confirmed again without a question.
  ASSERT_TRUE(d.Apri("10", 1));
  ASSERT_TRUE(d.ApriRiga(0));
  d.Riga().Scrivi("Lottox", "");
  EXPECT_FALSE(d.ConfermaRiga());
  EXPECT_THAT(Messaggi(), Contains("il lotto non si può eliminare"));
  EXPECT_EQ(R(d, "Lottox"), "A");
  EXPECT_TRUE(d.ConfermaRiga());
  // What was taken from it, or went into it, keeps it.
  for (const auto& [campo, testo] :
       {std::pair("NL2", "non si può eliminare: esistono scarichi correlati al lotto"),
        std::pair("NL3",
                  "non si può eliminare: esistono movimenti di scarico componenti correlati al "
                  "lotto")}) {
    Metti(Tessarc(), "FattureCli_r", "TipoDoc", "ZZ", "Anno", 2024, "NumDoc", 1, "Posi", 1, campo,
          1);
    ASSERT_TRUE(d.ApriRiga(0));
    EXPECT_FALSE(d.EliminaRiga());
    EXPECT_EQ(SoloMessaggio(), testo);
    d.AnnullaRiga();
    Tessarc().Esegui("delete * from FattureCli_r where TipoDoc='ZZ'");
  }
}

TEST_F(FattureCliRigheTest, EsistenzaNegativa) {
  Inserisci({.righe = {{"P1", I("10"), I("1")}}});
  FattureCli d(ambiente);
  d.Opzione("EsistenzaNegativa", true);
  EXPECT_TRUE(d.Opzione("EsistenzaNegativa"));
  const auto scarica = [&](const char* quantita) {
    EXPECT_TRUE(DigitaRiga(d, {"P1", I(quantita), I("3")}));
    return Messaggi();
  };
  ASSERT_TRUE(Digita(d, {.tipo = "XN", .parte = "9002", .altri = {{"Mag", "01"}}}));
  EXPECT_THAT(scarica("8"), IsEmpty());
  EXPECT_THAT(scarica("2.5"), ElementsAre("Esistenza -0,5 negativa"));
  ASSERT_TRUE(d.Conferma());
  Messaggi();
  // Of a stored document its own rows don't count twice, and the opened one gives way.
  ASSERT_TRUE(d.Apri("XN", 1));
  ASSERT_TRUE(d.ApriRiga(1));
  Lascia(d, "Quantita", I("2"));
  EXPECT_TRUE(d.ConfermaRiga());
  EXPECT_THAT(Messaggi(), IsEmpty());
  EXPECT_THAT(scarica("1"), ElementsAre("Esistenza -1 negativa"));
  // Another warehouse has its own stock.
  Campi(d, {{"Mag", "02"}});
  EXPECT_THAT(scarica("1"), ElementsAre("Esistenza -12 negativa"));
}

TEST_F(FattureCliRigheTest, RigheDaUnaSorgente) {
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.tipo = "01", .parte = "9002"}));
  ASSERT_TRUE(d.RigaDa({.codiceRiga = "P1",
                        .descrizione = "Vite speciale",
                        .quantita = I("2"),
                        .prezzo = I("10"),
                        .sc1 = I("50"),
                        .ordine = 12,
                        .posiOrdine = 3,
                        .ordineSaldato = true,
                        .provenienza = "prodotti recenti"}));
  EXPECT_EQ(d.NotaRiga(), "il Prezzo e gli altri dati della riga provengono da: prodotti recenti");
  EXPECT_EQ(R(d, "Importo"), "10");
  EXPECT_EQ(R(d, "um"), "NR");
  ASSERT_TRUE(d.ConfermaRiga());
  EXPECT_EQ(d.Righe()[0].ordine, 12);
  ASSERT_TRUE(d.ApriRiga(0));
  EXPECT_THAT(d.NotaRiga(), HasSubstr("questa riga ha scaricato un ordine: se si variano"));
  EXPECT_FALSE(d.RigaDa({.codiceRiga = "P2"}));
  Messaggi();
  d.AnnullaRiga();
  // Many: the first refused stops, and none is added.
  const auto rifiutate = d.RigheDa(
      {{.codiceRiga = "P2", .quantita = I("1")}, {.codiceRiga = "BOH", .quantita = I("1")}});
  ASSERT_TRUE(rifiutate.has_value());
  EXPECT_THAT(rifiutate->messaggio, HasSubstr("riga 2 (BOH): Prodotto: il codice BOH"));
  EXPECT_EQ(d.Righe().size(), 1U);
  d.Opzione("EsistenzaNegativa", true);
  EXPECT_FALSE(d.RigheDa({{.codiceRiga = "P2", .quantita = I("1"), .prezzo = I("2")},
                          {.codiceRiga = "P3", .quantita = I("2")},
                          {.codiceRiga = "p2", .quantita = I("4"), .prezzo = I("2")}}));
  EXPECT_THAT(Messaggi(), ElementsAre("P2: Esistenza -5 negativa\nP3: Esistenza -2 negativa",
                                      "il prodotto P3 è fuori uso"));
  EXPECT_EQ(d.Righe().size(), 4U);
  EXPECT_EQ(d.Righe()[3].posi, 400);
  EXPECT_EQ(d.Totali().totRighe, I("20"));
}

TEST_F(FattureCliRigheTest, Scanner) {
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.tipo = "XN", .parte = "9002"}));
  EXPECT_FALSE(d.Letto("999", true));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("«999»"));
  ASSERT_TRUE(d.PNuovaRiga());
  for (const char* letto : {"8001", "8002", "8001", "P1"}) EXPECT_TRUE(d.Letto(letto, true));
  ASSERT_EQ(d.Righe().size(), 2U);
  EXPECT_EQ(d.Righe()[0].quantita, I("3"));
  EXPECT_TRUE(d.Letto("8002", false));
  EXPECT_EQ(d.StatoCorrente(), FattureCli::Stato::RigaAperta);
  EXPECT_EQ(R(d, "Quantita"), "1");
}

TEST_F(FattureCliRigheTest, AccantoEMargini) {
  Inserisci({.righe = {{"P1", I("10"), I("4")}}});
  FattureCli d(ambiente);
  Comincia(d, "01", "9002");
  EXPECT_EQ(d.Accanto(), std::nullopt);
  Lascia(d, "CodiceRiga", "P1");
  Lascia(d, "Quantita", I("5"));
  Lascia(d, "Prezzo", I("10"));
  const auto accanto = d.Accanto();
  ASSERT_TRUE(accanto.has_value());
  EXPECT_EQ(accanto->esistenza.esistenza, I("10"));
  EXPECT_EQ(accanto->costi.ultimo, I("3.6"));  // less its ten per cent
  EXPECT_EQ(accanto->margine, I("32"));
  EXPECT_EQ(accanto->marginePerc, I("64"));
  ASSERT_TRUE(d.ConfermaRiga());
  EXPECT_EQ(d.Totali().totFat, I("61"));
  EXPECT_EQ(d.Margine(), I("32"));
  EXPECT_EQ(d.MarginePerc(), I("64"));
  Campi(d, {{"Fatturo", false}});
  EXPECT_EQ(d.Totali().totFat, Importo());
  EXPECT_EQ(d.Totali().totImponibile, I("50"));
}

}  // namespace
}  // namespace fenalto::prova
