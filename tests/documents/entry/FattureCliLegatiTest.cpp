// Documents that go together: a load and the unload of its components, both sides of a transfer.
#include "documents/entry/DocumentoDiProva.h"

namespace fenalto::prova {
namespace {

using documents::FattureCli;

class FattureCliLegatiTest : public DocumentoDiProva {
 protected:
  /// Three of DB, with a lot if asked.
  RigaDaDigitare Mensole(const char* quantita, const char* lotto = "") {
    dialoghi.Rispondera("DB ha distinta base", Risposta::Si);
    return {"DB", I(quantita), {}, {{"Lottox", lotto}}};
  }
  void Produci(const char* lotto = "") {
    Inserisci({.righe = {{"P2", I("100"), I("1.5")}}});
    ASSERT_EQ(Inserisci({.tipo = "30", .righe = {Mensole("3", lotto)}}), 1);
  }
};

TEST_F(FattureCliLegatiTest, IlCaricoScaricaIComponenti) {
  FattureCli d(ambiente);
  ASSERT_TRUE(d.ScegliTipo("30"));
  ASSERT_TRUE(d.Nuovo());
  EXPECT_EQ(SoloMessaggio(),
            "si tratta di un tipo documento che scarica automaticamente la distinta base\n(verrà "
            "creato un documento di tipo 31)");
  d.Abbandona();
  Produci("L1");
  EXPECT_EQ(RigheDi("30", 1), "100 DB 3 a 8.5 = 25.5 nl1:1");
  EXPECT_EQ(RigheDi("31", 1),
            "100 P1 6 a 2 = 12 costo 2 nl3:1 | 200 P2 9 a 1.5 = 13.5 costo 1.5 nl3:1");
  EXPECT_EQ(DellaTesta("31", 1, "NumDocCarico").Testo(), "30/1");
  EXPECT_EQ(DellaTesta("31", 1, "DtDocCarico").Data(), G(15, 3, 2024));
  EXPECT_EQ(DellaTesta("31", 1, "CliFor").Testo(), "9001");
  EXPECT_EQ(DellaTesta("31", 1, "CREATOINAUTOMATICO").Intero(), 1);
  EXPECT_EQ(Discordi(), 0);
  ASSERT_TRUE(d.Apri("31", 1));
  EXPECT_THAT(Messaggi(), ElementsAre("si tratta di un carico correlato ad uno scarico automatico "
                                      "di componenti"));
}

TEST_F(FattureCliLegatiTest, CostoMedioEPartePropria) {
  Config("DbCostoMedio", "1");
  Tessarc().Esegui("update TipiFattureCli set CliFor='0002' where Cod='31'");
  Inserisci({.righe = {{"P2", I("10"), I("1")}, {"P2", I("30"), I("3")}}});
  dialoghi.Rispondera("DB ha distinta base", Risposta::No);
  ASSERT_EQ(Inserisci({.tipo = "30", .righe = {{"DB", I("1"), I("7")}}}), 1);
  EXPECT_EQ(RigheDi("31", 1), "100 P1 2 a 2 = 4 costo 2 | 200 P2 3 a 2.5 = 7.5 costo 2.5");
  EXPECT_EQ(DellaTesta("31", 1, "CliFor").Testo(), "0002");
}

TEST_F(FattureCliLegatiTest, CaricoCorretto) {
  Produci();
  FattureCli d(ambiente);
  const auto correggi = [&](const char* quantita, Risposta rifare) {
    ASSERT_TRUE(d.Apri("30", 1));
    ASSERT_TRUE(d.ApriRiga(0));
    d.Riga().Scrivi("Quantita", I(quantita));
    d.RigaLasciata("Quantita");
    ASSERT_TRUE(d.ConfermaRiga());
    dialoghi.Rispondera("rifaccio lo scarico automatico dei componenti, 31 n. 1", rifare);
    ASSERT_TRUE(d.Conferma());
  };
  correggi("5", Risposta::No);
  EXPECT_EQ(Esistenza("P1"), "-6");
  const std::int64_t id = DellaTesta("31", 1, "ID").Intero();
  correggi("4", Risposta::Si);
  EXPECT_EQ(Esistenza("P1"), "-8");
  EXPECT_EQ(DellaTesta("31", 1, "ID").Intero(), id);
  EXPECT_EQ(Quanti(), "3 4");
  // No bill any more.
  Tessarc().Esegui("delete * from Db_r");
  ASSERT_TRUE(d.Apri("30", 1));
  dialoghi.Rispondera("nessun prodotto del carico ha più distinta base", Risposta::Si);
  ASSERT_TRUE(d.Conferma());
  EXPECT_EQ(Quanti(), "2 2");
  EXPECT_EQ(Esistenza("P1"), "0");
}

TEST_F(FattureCliLegatiTest, CaricoEliminato) {
  Produci("L1");
  FattureCli d(ambiente);
  ASSERT_TRUE(d.Apri("30", 1));
  Messaggi();
  const char* domanda = "elimino anche lo scarico automatico dei componenti, 31 n. 1";
  dialoghi.Rispondera(domanda, Risposta::Annulla);
  EXPECT_FALSE(d.Elimina());
  dialoghi.Rispondera(domanda, Risposta::No);
  EXPECT_FALSE(d.Elimina());
  EXPECT_EQ(SoloMessaggio(),
            "non si può eliminare: esistono movimenti di scarico componenti correlati al lotto");
  {
    const auto cassa = NuovaStazione("CASSA");
    FattureCli altra(*cassa->ambiente);
    ASSERT_TRUE(altra.Apri("31", 1));
    dialoghi.Rispondera(domanda, Risposta::Si);
    EXPECT_FALSE(d.Elimina());
    EXPECT_THAT(SoloMessaggio(), HasSubstr("il documento 31 n. 1 del 15/03/2024 è in modifica"));
  }
  dialoghi.Rispondera(domanda, Risposta::Si);
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO 1", Risposta::Si);
  ASSERT_TRUE(d.Elimina());
  EXPECT_EQ(Quanti(), "1 1");
}

TEST_F(FattureCliLegatiTest, LoScaricoRestaSenzaIlCarico) {
  Produci();
  FattureCli d(ambiente);
  ASSERT_TRUE(d.Apri("30", 1));
  dialoghi.Rispondera("elimino anche", Risposta::No);
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO 1", Risposta::Si);
  ASSERT_TRUE(d.Elimina());
  EXPECT_EQ(DellaTesta("31", 1, "NumDocOrigine").Intero(), 0);
  // The next load of that number isn't its origin.
  Produci();
  EXPECT_EQ(RigheDi("31", 2), RigheDi("31", 1));
}

TEST_F(FattureCliLegatiTest, EliminatoLoScaricoDaSolo) {
  Produci("L1");
  FattureCli d(ambiente);
  ASSERT_TRUE(d.Apri("31", 1));
  Messaggi();
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO 1", Risposta::Si);
  ASSERT_TRUE(d.Elimina());
  EXPECT_THAT(Messaggi()[0],
              HasSubstr("Attenzione: si tratta di un movimento automatico di scarico "
                        "componenti correlato ad un carico a lotti"));
  ASSERT_TRUE(d.Apri("30", 1));
  dialoghi.Rispondera("faccio lo scarico automatico dei componenti ?", Risposta::Si);
  ASSERT_TRUE(d.Conferma());
  EXPECT_THAT(RigheDi("31", 1), HasSubstr("nl3:1"));
}

TEST_F(FattureCliLegatiTest, ScarichiCorrelatiAiLotti) {
  Inserisci({.righe = {{"P2", I("5"), I("1"), {{"Lottox", "A"}}}}});
  Metti(Tessarc(), "FattureCli_r", "TipoDoc", "ZZ", "Anno", 2023, "NumDoc", 1, "Posi", 1, "NL2", 1);
  FattureCli d(ambiente);
  ASSERT_TRUE(d.Apri("10", 1));
  EXPECT_FALSE(d.Elimina());
  EXPECT_EQ(SoloMessaggio(), "non si può eliminare esistono scarichi correlati ai lotti");
}

TEST_F(FattureCliLegatiTest, Trasferimento) {
  Inserisci({.righe = {{"P1", I("10"), I("4")}, {"P2", I("5"), I("1")}}});
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.tipo = "20", .righe = {{"P1", I("3")}, {"P2", I("2"), I("6")}}}));
  EXPECT_EQ(d.Testa().Testo("MagDest"), "02");
  EXPECT_TRUE(d.StatoTesta("MagDest").visibile);
  ASSERT_TRUE(d.Conferma());
  EXPECT_THAT(d.Fatto(),
              ElementsAre("Trasferimento ad altro magazzino n. 1 del 15/03/2024 memorizzato",
                          "Trasferimento da altro magazzino n. 1 memorizzato"));
  EXPECT_EQ(RigheDi("20", 1), "100 P1 3 a 0 = 0 costo 3.6 | 200 P2 2 a 6 = 12 costo 1");
  // Goods are worth there what they cost here.
  EXPECT_EQ(RigheDi("21", 1), "100 P1 3 a 3.6 = 10.8 | 200 P2 2 a 6 = 12");
  EXPECT_EQ(Esistenza("P1", "01") + " " + Esistenza("P1", "02"), "7 3");
  EXPECT_EQ(DellaTesta("21", 1, "NumDocCarico").Testo(), "20/1");

  const char* corretto =
      "con questo documento sarà corretto anche l'altro lato del trasferimento, ";
  ASSERT_TRUE(d.Apri("20", 1));
  EXPECT_EQ(d.Testa().Testo("MagDest"), "02");
  EXPECT_THAT(SoloMessaggio(), HasSubstr("l'altro lato di questo trasferimento è il documento 21 "
                                         "n. 1 del 15/03/2024"));
  Campi(d, {{"Dt", G(20, 3, 2024)}, {"Mag", ""}, {"MagDest", "01"}});
  dialoghi.Rispondera(corretto, Risposta::No);
  EXPECT_FALSE(d.Conferma());
  dialoghi.Rispondera(corretto, Risposta::Si);
  ASSERT_TRUE(d.Conferma());
  EXPECT_EQ(DellaTesta("21", 1, "Dt").Data(), G(20, 3, 2024));
  EXPECT_EQ(Esistenza("P1", "01") + " " + Esistenza("P1", ""), "13 10");
  // The other side corrects the first, and what that has of its own stays.
  Messaggi();
  ASSERT_TRUE(d.Apri("21", 1));
  EXPECT_THAT(SoloMessaggio(),
              HasSubstr("questo documento è l'altro lato del trasferimento 20 n. 1"));
  ASSERT_TRUE(d.ApriRiga(0));
  d.Riga().Scrivi("Quantita", I("4"));
  ASSERT_TRUE(d.ConfermaRiga());
  ASSERT_TRUE(DigitaRiga(d, {"DB", I("1"), I("9")}));
  dialoghi.Rispondera(corretto, Risposta::Si);
  ASSERT_TRUE(d.Conferma());
  EXPECT_EQ(RigheDi("20", 1),
            "100 P1 4 a 0 = 0 costo 3.6 | 200 P2 2 a 6 = 12 costo 1 | 300 DB 1 a 0 = 0 costo 9");
  EXPECT_EQ(Esistenza("P1", ""), "10");
  EXPECT_EQ(Discordi(), 0);
  EXPECT_EQ(Quanti(), "3 8");
}

TEST_F(FattureCliLegatiTest, TrasferimentoEliminatoDaUnLatoODallAltro) {
  FattureCli d(ambiente);
  for (const char* lato : {"20", "21"}) {
    SCOPED_TRACE(lato);
    ASSERT_EQ(Inserisci({.tipo = "20", .righe = {{"P1", I("3")}}}), 1);
    {
      const auto cassa = NuovaStazione("CASSA");
      FattureCli altra(*cassa->ambiente);
      ASSERT_TRUE(altra.Apri(lato == std::string("20") ? "21" : "20", 1));
      ASSERT_TRUE(d.Apri(lato, 1));
      dialoghi.Rispondera("sarà eliminato anche l'altro lato", Risposta::Si);
      EXPECT_FALSE(d.Elimina());
      EXPECT_THAT(Messaggi(), Contains(HasSubstr("è in modifica")));
    }
    dialoghi.Rispondera("sarà eliminato anche l'altro lato", Risposta::No);
    EXPECT_FALSE(d.Elimina());
    dialoghi.Rispondera("sarà eliminato anche l'altro lato", Risposta::Si);
    dialoghi.Rispondera("Conferma eliminazione DOCUMENTO 1", Risposta::Si);
    ASSERT_TRUE(d.Elimina());
    EXPECT_EQ(Quanti(), "0 0");
  }
}

TEST_F(FattureCliLegatiTest, TipoLegatoEliminato) {
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.tipo = "20", .righe = {{"P1", I("3")}}}));
  Tessarc().Esegui("delete * from TipiFattureCli where Cod='21'");
  EXPECT_FALSE(d.Conferma());
  EXPECT_EQ(SoloMessaggio(), "il tipo documento 21, da scrivere insieme a questo, non esiste più");
  EXPECT_EQ(Quanti(), "0 0");
}

}  // namespace
}  // namespace fenalto::prova
