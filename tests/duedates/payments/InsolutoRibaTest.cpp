// A receipt that came back unpaid: the due date that lives again, the registration that takes the
// collection back, the one presented that stays paid.
#include "duedates/payments/InsolutoRiba.h"
#include "duedates/payments/ScadenzaDigitataDiProva.h"
#include "ledger/GuastiDiProva.h"

namespace fenalto::prova {
namespace {

class InsolutoRibaTest : public ScadenzaDigitataDiProva {
 protected:
  InsolutoRibaTest() {
    Imposta("4");
    Scadenzario().Inserisci("Banche", {{"Cod", "01"}});
  }

  /// A receipt of 0001 that is with the bank: state 30, in a batch.
  std::int64_t Presentata(const char* importo, int nFat, int distinta, Data dtPres,
                          const char* altro = "") {
    const std::int64_t numero = Nuova("C", "0001", importo, nFat);
    const std::string chi = " where " + sql::Criterio("Numero", "=", numero);
    Scadenzario().Esegui(
        "update Scadenze set Tipo='03', Stato='30', BancaPresentaz='01', Ndistinta=" +
        std::to_string(distinta) + ", DtPres=" + sql::LetteraleSql(dtPres) + chi);
    if (*altro != '\0') Scadenzario().Esegui(std::string("update Scadenze set ") + altro + chi);
    return numero;
  }
  /// "numero/insoluto" of what may have come back.
  static std::vector<std::string> Elenco(duedates::InsolutoRiba& insoluto,
                                         std::size_t massimo = 10) {
    std::vector<std::string> elenco;
    for (const duedates::RicevutaPresentata& r : insoluto.Presentate(massimo))
      elenco.push_back(std::to_string(r.numero) + "/" + std::to_string(r.insoluto));
    return elenco;
  }
  std::string Tutta(std::int64_t numero) {
    const Rs r = Scadenzario().Recordset("select * from Scadenze where " +
                                         sql::Criterio("Numero", "=", numero));
    std::string testo;
    for (const char* campo : {"NFat", "DtFat", "BancaPresentaz", "Ndistinta", "DtPres", "Programma",
                              "ImportoPagatoE"}) {
      testo += r.Fields(campo).Testo() + " ";
    }
    return testo;
  }
};

TEST_F(InsolutoRibaTest, QuelleCheSonoInBanca) {
  Presentata("10", 1, 0, {});  // paid, never presented
  const auto prima = Presentata("10", 2, 7, G(31, 1, 2024));
  const auto dopo = Presentata("20", 3, 8, G(29, 2, 2024));
  const auto stessa = Presentata("30", 4, 8, G(29, 2, 2024));
  Presentata("10", 5, 8, G(29, 2, 2024), "Stato='20'");  // not definitive yet
  Presentata("10", 6, 8, G(29, 2, 2024), "Conto='0002'");
  Presentata("10", 7, 8, G(29, 2, 2024), "CFP='F'");
  Presentata("10", 8, 8, G(29, 2, 2024), "Tipo='01'");
  duedates::InsolutoRiba insoluto(ambiente);
  EXPECT_THAT(Elenco(insoluto), IsEmpty());
  insoluto.ScegliParte("C", "0001");
  const auto n = [](std::int64_t numero) { return std::to_string(numero) + "/0"; };
  EXPECT_THAT(Elenco(insoluto), ElementsAre(n(stessa), n(dopo), n(prima)));
  EXPECT_THAT(Elenco(insoluto, 1), ElementsAre(n(stessa)));
}

TEST_F(InsolutoRibaTest, UnaRicevutaTornata) {
  const auto presentata = Presentata("122", 5, 12, G(29, 2, 2024));
  const std::string com = ScadenzaScritta(presentata) + Tutta(presentata);
  duedates::InsolutoRiba insoluto(ambiente);
  insoluto.ScegliParte("C", "0001");
  ASSERT_TRUE(insoluto.Nuovo());
  EXPECT_EQ(insoluto.Numero(), 0);
  EXPECT_EQ(insoluto.Dati().Testo("Descrizione"), "Insoluto fatt. ");
  insoluto.Riprendi(presentata);
  Digita(insoluto, "Dt", G(30, 4, 2024));
  ASSERT_TRUE(insoluto.Conferma());
  EXPECT_EQ(SoloMessaggio(), "- insoluto inserito in scadenzario\n- Creato articolo contabile 1");
  EXPECT_EQ(ScadenzaScritta(2),
            "C:0001 30/04/2024 01 01 122 2024/1 «Insoluto fatt. 5 del 31/01/2024»");
  EXPECT_EQ(Tutta(2), "5 2024-01-31 01 12 2024-02-29 insoluti 0 ");
  EXPECT_EQ(TestaDi(1), "C:0001 P:100.010 22 15/03/2024");
  EXPECT_THAT(RigheDi(1),
              ElementsAre("1 002 C:0001 122/0 P:100.010 «Insoluto fatt. 5 del 31/01/2024»",
                          "2 002 P:100.010 0/122 C:0001 «Insoluto fatt. 5 del 31/01/2024»"));
  EXPECT_EQ(ScadenzaScritta(presentata) + Tutta(presentata), com);
  EXPECT_THAT(Elenco(insoluto), ElementsAre("1/2"));
}

TEST_F(InsolutoRibaTest, DueUgualiTornanoUnaAllaVolta) {
  const auto una = Presentata("50", 5, 12, G(29, 2, 2024));
  const auto altra = Presentata("50", 5, 12, G(29, 2, 2024));
  duedates::InsolutoRiba insoluto(ambiente);
  insoluto.ScegliParte("C", "0001");
  for (const std::int64_t tornata : {altra, una}) {
    ASSERT_TRUE(insoluto.Nuovo());
    insoluto.Riprendi(tornata);
    ASSERT_TRUE(insoluto.Conferma());
  }
  EXPECT_THAT(Elenco(insoluto), ElementsAre("2/3", "1/4"));
}

// A receipt comes back once; with the bank's charges on its amount it is the same one.
TEST_F(InsolutoRibaTest, UnaSecondaVoltaSiChiede) {
  const auto prima = Presentata("122", 5, 12, G(29, 2, 2024));
  const auto gemella = Presentata("122", 5, 12, G(29, 2, 2024));
  duedates::InsolutoRiba insoluto(ambiente);
  insoluto.ScegliParte("C", "0001");
  const auto registra = [&](std::int64_t ricevuta, const char* importo) {
    insoluto.Nuovo();
    if (ricevuta != 0) insoluto.Riprendi(ricevuta);
    const std::vector<Coppia> aMano = {
        {"BancaPresentaz", "01"}, {"Ndistinta", 12}, {"NFat", "5"}, {"DtFat", G(31, 1, 2024)}};
    for (const auto& [campo, valore] : aMano) Digita(insoluto, campo.c_str(), valore);
    Digita(insoluto, "ImportoE", I(importo));
    Digita(insoluto, "Descrizione", "Insoluto fatt. 5");
    return insoluto.Conferma();
  };
  EXPECT_TRUE(registra(gemella, "125.50"));
  // Typed by hand: the other one of the two.
  EXPECT_TRUE(registra(0, "122"));
  Messaggi();
  const std::string com = Tutto();
  for (const std::int64_t ricevuta : {prima, gemella, std::int64_t{0}}) {
    dialoghi.Rispondera("è già stata registrata insoluta, con la scadenza n. ", Risposta::No);
    EXPECT_FALSE(registra(ricevuta, "122")) << ricevuta;
    EXPECT_EQ(Tutto(), com);
  }
  dialoghi.Rispondera("la registro un'altra volta", Risposta::Si);
  dialoghi.Rispondera("l'importo -122,00 ha il segno contrario a quello che aveva la ricevuta n. 1",
                      Risposta::No);
  EXPECT_FALSE(registra(prima, "-122"));
  EXPECT_EQ(Tutto(), com);
  EXPECT_THAT(Messaggi(), IsEmpty());
}

TEST_F(InsolutoRibaTest, ScrittoAManoLatiEImpostazione) {
  duedates::InsolutoRiba insoluto(ambiente);
  EXPECT_FALSE(insoluto.Nuovo());
  EXPECT_EQ(SoloMessaggio(), "impostare un codice cliente o fornitore");
  struct Caso {
    const char *cfp, *importo, *riga;
  };
  const Caso casi[] = {{"F", "50", "1 002 F:0002 0/50 P:100.010 «Insoluto fatt. 9»"},
                       {"F", "-50", "1 002 F:0002 50/0 P:100.010 «Insoluto fatt. 9»"},
                       {"C", "-50", "1 002 C:0002 0/50 P:100.010 «Insoluto fatt. 9»"}};
  std::int64_t numDoc = 0;
  for (const Caso& caso : casi) {
    insoluto.ScegliParte(caso.cfp, "0002");
    ASSERT_TRUE(insoluto.Nuovo());
    Digita(insoluto, "ImportoE", I(caso.importo));
    Digita(insoluto, "Descrizione", "Insoluto fatt. 9");
    ASSERT_TRUE(insoluto.Conferma());
    EXPECT_EQ(RigheDi(++numDoc).front(), caso.riga);
  }
  Messaggi();
  Imposta("4", "0");
  duedates::InsolutoRiba senza(ambiente);
  senza.ScegliParte("C", "0003");
  ASSERT_TRUE(senza.Nuovo());
  EXPECT_FALSE(senza.Conferma());
  EXPECT_EQ(SoloMessaggio(), "manca importo, tipo, stato");
  Digita(senza, "ImportoE", I("50"));
  ASSERT_TRUE(senza.Conferma());
  EXPECT_EQ(SoloMessaggio(), "- insoluto inserito in scadenzario");
  EXPECT_EQ(ScadenzaScritta(4), "C:0003 15/03/2024 01 01 50 0/0 «Insoluto fatt. »");
  EXPECT_EQ(TestaDi(numDoc + 1), "manca");
}

TEST_F(InsolutoRibaTest, CambiatoDopoNonNeScriveUnAltro) {
  Imposta("4", "0");
  const auto altra = Nuova("C", "0001", "10", 1);
  duedates::InsolutoRiba insoluto(ambiente);
  insoluto.ScegliParte("C", "0001");
  Digita(insoluto, "ImportoE", I("50"));
  ASSERT_TRUE(insoluto.Conferma());
  Messaggi();
  const auto numero = insoluto.NumeroScritto();
  EXPECT_FALSE(insoluto.Apri(altra));
  EXPECT_EQ(SoloMessaggio(), "la scadenza n. 1 non è di un insoluto");
  // Written without its registration, it may get it later; then it has one.
  Imposta("4");
  duedates::InsolutoRiba dopo(ambiente);
  ASSERT_TRUE(dopo.Apri(numero));
  EXPECT_EQ(dopo.Numero(), numero);
  EXPECT_FALSE(dopo.RegContEffettuata());
  Digita(dopo, "ImportoE", I("55"));
  ASSERT_TRUE(dopo.Conferma());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("- Creato articolo contabile 1"));
  ASSERT_TRUE(dopo.Apri(numero));
  EXPECT_TRUE(dopo.RegContEffettuata());
  Digita(dopo, "ImportoE", I("60"));
  ASSERT_TRUE(dopo.Conferma());
  EXPECT_EQ(SoloMessaggio(),
            "- insoluto inserito in scadenzario\n- L'articolo contabile 1 resta com'era");
  EXPECT_EQ(ScadenzaScritta(numero), "C:0001 15/03/2024 01 01 60 2024/1 «Insoluto fatt. »");
  EXPECT_EQ(QuanteScadenze(), 2);
  EXPECT_EQ(TestaDi(2), "manca");

  ASSERT_TRUE(dopo.Apri(numero));
  Digita(dopo, "ImportoE", I("65"));
  Scadenzario().Esegui("update Scadenze set Stato='30' where " +
                       sql::Criterio("Numero", "=", numero));
  const std::string prima = Tutto();
  EXPECT_FALSE(dopo.Conferma());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("è già stata pagata"));
  EXPECT_EQ(Tutto(), prima);
}

TEST_F(InsolutoRibaTest, GuastoAMetaNonLasciaNulla) {
  const auto presentata = Presentata("122", 5, 12, G(29, 2, 2024));
  duedates::InsolutoRiba insoluto(ambiente);
  insoluto.ScegliParte("C", "0001");
  ASSERT_TRUE(insoluto.Nuovo());
  insoluto.Riprendi(presentata);
  const int falliti = FallisceOgniIstruzione(
      ambiente.Basi(), Guasto::Errore, [this] { return Tutto(); },
      [&] { return insoluto.Conferma(); });
  EXPECT_GT(falliti, 6);
  EXPECT_EQ(ScadenzaScritta(2),
            "C:0001 15/03/2024 01 01 122 2024/1 «Insoluto fatt. 5 del 31/01/2024»");
  EXPECT_EQ(QuanteScadenze(), 2);
  EXPECT_THAT(RigheDi(1), ::testing::SizeIs(2));
  for (const std::string& messaggio : Messaggi()) {
    if (messaggio.starts_with("- insoluto")) continue;
    EXPECT_THAT(messaggio, HasSubstr("Non è stato scritto nulla"));
  }
}

}  // namespace
}  // namespace fenalto::prova
