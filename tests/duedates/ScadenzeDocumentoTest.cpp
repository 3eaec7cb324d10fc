// The due dates of one document: which they are, deposits taken off them, what the invoice prints.
#include "duedates/payments/ScadenzeDiProva.h"
#include "duedates/schedules/ScadenzeDocumento.h"
#include "duedates/schedules/TestoScadenze.h"
#include "ledger/GuastiDiProva.h"

namespace fenalto::prova {
namespace {

class ScadenzeDocumentoTest : public ScadenzeDiProva {
 protected:
  std::int64_t Rata(const char* importo, const char* cfp = "C", const char* pagato = "0") {
    const auto n = Nuova(cfp, "0001", importo, 5, pagato);
    Scadenzario().Esegui("update Scadenze set Articolo=12, Programma='fatture' where " +
                         sql::Criterio("Numero", "=", n));
    return n;
  }
  std::int64_t Anticipo(const char* importo, const char* cfp = "C", const char* conto = "0001",
                        const char* pagato = "0") {
    const auto n = Nuova(cfp, conto, importo, 0, pagato);
    Scadenzario().Esegui("update Scadenze set anticipo=True, Programma='acconti' where " +
                         sql::Criterio("Numero", "=", n));
    return n;
  }
  void Fattura(const char* cfp = "C") {
    Metti(Tessarc(), "Articoli", "Anno", 2024, "NumDoc", 12, "CFP", cfp, "Conto", "0001", "Riva",
          "1", "NProt", 7, "NFat", "5/A", "DtFat", G(31, 1, 2024), "Pagamento", "RD30");
  }
  /// "00 90 0": state, amount, paid.
  std::string Com(std::int64_t numero) {
    const duedates::Scadenza s = S(numero);
    const Valore lire = Scadenzario().Singolo("select Importo from Scadenze where " +
                                              sql::Criterio("Numero", "=", numero));
    EXPECT_EQ(lire.Importo(), EuroInLire(s.importoE, true));
    return s.stato + " " + s.importoE.Testo() + " " + s.importoPagatoE.Testo();
  }
  /// What party 0001 owes by the open due dates.
  Importo Aperto() {
    return Scadenzario()
        .Singolo("select sum(ImportoE-ImportoPagatoE) from Scadenze where Stato<'30'")
        .Importo();
  }

  duedates::ScadenzeDocumento documento{ambiente};
};

TEST_F(ScadenzeDocumentoTest, SoloLeSueScadenze) {
  EXPECT_FALSE(documento.Apri(2024, 12));
  EXPECT_FALSE(documento.Apri(2024, 0));
  Nuova("C", "0001", "1", 5);
  const auto sua = Rata("100");
  const auto pagata = Rata("50", "C", "50");
  Scadenzario().Esegui("update Scadenze set Anno=2023 where Numero=1");
  Scadenzario().Esegui("update Scadenze set Stato='30' where " +
                       sql::Criterio("Numero", "=", pagata));
  const auto anticipo = Anticipo("-10");
  Anticipo("-10", "F");
  Anticipo("-10", "C", "0002");
  Scadenzario().Esegui("update Scadenze set Stato='30' where " +
                       sql::Criterio("Numero", "=", Anticipo("-10")));
  // Without registration the due dates tell whose they are.
  ASSERT_TRUE(documento.Apri(2024, 12));
  EXPECT_EQ(documento.Conto(), "0001");
  ASSERT_EQ(documento.Scadenze().size(), 2U);
  EXPECT_EQ(documento.Scadenze()[0].numero, sua);
  ASSERT_EQ(documento.Anticipi().size(), 1U);
  EXPECT_EQ(documento.Anticipi()[0].numero, anticipo);
  Fattura();
  ASSERT_TRUE(documento.Apri(2024, 12));
  EXPECT_THAT(documento.Descrizione(), HasSubstr("registrazione n. 12 del 2024: Clienti 0001"));
  EXPECT_THAT(documento.Descrizione(), HasSubstr("ft. 5/A del 31/01/2024, registro 1 prot. 7"));
  // Another one that isn't there leaves this one open.
  EXPECT_FALSE(documento.Apri(2024, 13));
  EXPECT_EQ(documento.Articolo(), 12);
  EXPECT_EQ(documento.Scadenze().size(), 2U);
  const auto nuova = documento.Nuova();
  EXPECT_THAT(nuova, ::testing::Contains(Coppia("NFat", "5/A")));
  EXPECT_THAT(nuova, ::testing::Contains(Coppia("Articolo", 12)));
}

// The registration was erased, and its number given to another party's.
TEST_F(ScadenzeDocumentoTest, NumeroRiusatoDaUnAltraParte) {
  const auto vecchia = Rata("100");
  Scadenzario().Esegui("update Scadenze set Conto='0002', Stato='30'");
  const auto sua = Rata("50");
  Fattura();
  ASSERT_TRUE(documento.Apri(2024, 12));
  ASSERT_EQ(documento.Scadenze().size(), 1U);
  EXPECT_EQ(documento.Scadenze()[0].numero, sua);
  std::vector<std::int64_t> mostrate;
  duedates::CercaScadenze(ambiente, documento.Ricerca(), [&](const duedates::RigaScadenza& riga) {
    mostrate.push_back(riga.numero);
    return true;
  });
  EXPECT_EQ(mostrate, std::vector{sua});
  // A payment of several parties has them in its rows.
  Tessarc().Esegui("update Articoli set CFP='', Conto='DIVERSI'");
  for (const char* conto : {"0001", "0002"}) {
    Metti(Tessarc(), "Movimenti", "Anno", 2024, "NumDoc", 12, "CFP", "C", "Conto", conto);
  }
  ASSERT_TRUE(documento.Apri(2024, 12));
  EXPECT_EQ(documento.Scadenze().size(), 2U);
  EXPECT_EQ(documento.Scadenze()[0].numero, vecchia);
}

TEST_F(ScadenzeDocumentoTest, Deduzione) {
  struct Caso {
    const char *cosa, *cfp, *rata, *pagato;
    std::vector<std::pair<const char*, const char*>> anticipi;  ///< amount, taken already
    std::vector<std::pair<const char*, Risposta>> domande;
    std::string detto, scadenza;
    std::vector<std::string> dopo;
  };
  constexpr const char* kDedotti =
      "- Scadenza modificata\n- Anticipi dedotti e portati in stato 30";
  const Caso casi[] = {
      Caso("per intero", "C", "100", "0", {{"-30", "0"}},
           {{"sottraggo l'anticipo di euro 30,00 dall'importo della scadenza ?", Risposta::Si}},
           kDedotti, "00 70 0", {"30 -30 0"}),
      Caso("fornitore, con una parte già pagata", "F", "100", "20", {{"-30", "0"}},
           {{"euro 30,00", Risposta::Si}}, kDedotti, "00 70 20", {"30 -30 0"}),
      Caso("rifiutata", "C", "100", "0", {{"-30", "0"}}, {{"euro 30,00", Risposta::No}}, "",
           "00 100 0", {"00 -30 0"}),
      Caso("uno sì e uno no", "C", "100", "0", {{"-30", "0"}, {"-20.5", "0"}},
           {{"euro 30,00", Risposta::No}, {"euro 20,50", Risposta::Si}}, kDedotti, "00 79.5 0",
           {"00 -30 0", "30 -20.5 0"}),
      Caso("niente resta da pagare", "C", "30", "0", {{"-30", "0"}}, {{"euro 30,00", Risposta::Si}},
           kDedotti, "30 0 0", {"30 -30 0"}),
      Caso(
          "più grande della scadenza: il resto aspetta la prossima", "C", "25", "5",
          {{"-30", "0"}, {"-1", "0"}},
          {{"euro 20,00 dall'importo della scadenza ?\n(l'anticipo è di euro 30,00", Risposta::Si}},
          "- Scadenza modificata\n- dell'anticipo n. 2 restano da dedurre euro 10,00", "30 5 5",
          {"10 -30 -20", "00 -1 0"}),
      Caso("il resto di prima", "C", "100", "0", {{"-30", "-20"}}, {{"euro 10,00", Risposta::Si}},
           kDedotti, "00 90 0", {"30 -30 -20"}),
      Caso("scritto senza il meno", "C", "100", "0", {{"30", "0"}}, {}, "", "00 100 0",
           {"00 30 0"}),
      Caso("nota di credito", "C", "-100", "0", {{"-30", "0"}}, {}, "", "00 -100 0", {"00 -30 0"}),
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.cosa);
    Scadenzario().Esegui("delete * from Scadenze");
    const auto rata = Rata(caso.rata, caso.cfp, caso.pagato);
    std::vector<std::int64_t> anticipi;
    for (const auto& [importo, pagato] : caso.anticipi)
      anticipi.push_back(Anticipo(importo, caso.cfp, "0001", pagato));
    const Importo aperto = Aperto();
    ASSERT_TRUE(documento.Apri(2024, 12));
    for (const auto& [testo, risposta] : caso.domande) dialoghi.Rispondera(testo, risposta);
    EXPECT_EQ(documento.DeduciAnticipi(rata), !caso.detto.empty());
    const std::vector<std::string> detti(caso.detto.empty() ? 0 : 1, caso.detto);
    EXPECT_EQ(Messaggi(), detti);
    EXPECT_EQ(Com(rata), caso.scadenza);
    for (std::size_t i = 0; i < anticipi.size(); ++i) EXPECT_EQ(Com(anticipi[i]), caso.dopo[i]);
    // What the party owes doesn't change by it.
    EXPECT_EQ(Aperto(), aperto);
    documento.Rileggi();
    EXPECT_EQ(documento.Scadenze()[0].importoE, S(rata).importoE);
  }
}

TEST_F(ScadenzeDocumentoTest, NonSiDeduceDaUnaPagataNeDaUnAltroAnticipo) {
  const auto pagata = Rata("100");
  Scadenzario().Esegui("update Scadenze set Stato='30'");
  Anticipo("-30");
  const auto anticipo = Anticipo("50");
  Scadenzario().Esegui("update Scadenze set Articolo=12 where " +
                       sql::Criterio("Numero", "=", anticipo));
  ASSERT_TRUE(documento.Apri(2024, 12));
  const std::string prima = Tutto();
  for (const auto numero : {pagata, anticipo, std::int64_t{99}})
    EXPECT_FALSE(documento.DeduciAnticipi(numero));
  EXPECT_THAT(Messaggi(), IsEmpty());
  EXPECT_EQ(Tutto(), prima);
}

// The number of an erased registration was given anew: due dates of two parties stand together.
TEST_F(ScadenzeDocumentoTest, LAnticipoDiUnAltroNonSiDeduce) {
  const auto vecchia = Nuova("C", "0002", "100", 5);
  Scadenzario().Esegui("update Scadenze set Articolo=12");
  Fattura();
  Anticipo("-30");
  ASSERT_TRUE(documento.Apri(2024, 12));
  EXPECT_FALSE(documento.DeduciAnticipi(vecchia));
  EXPECT_EQ(Com(vecchia), "00 100 0");
}

// The due date was paid, or the deposit taken off another invoice, since this window showed them.
TEST_F(ScadenzeDocumentoTest, CambiateDaUnAltraPostazione) {
  const auto rata = Rata("100");
  const auto anticipo = Anticipo("-30");
  for (const auto cambiata : {rata, anticipo}) {
    ASSERT_TRUE(documento.Apri(2024, 12));
    const std::string dove = " where " + sql::Criterio("Numero", "=", cambiata);
    Scadenzario().Esegui("update Scadenze set Stato='30'" + dove);
    const std::string prima = Tutto();
    dialoghi.Rispondera("euro 30,00", Risposta::Si);
    EXPECT_FALSE(documento.DeduciAnticipi(rata));
    EXPECT_THAT(SoloMessaggio(),
                ::testing::AllOf(HasSubstr("scadenza n. " + std::to_string(cambiata)),
                                 HasSubstr("Non è stato scritto nulla.")));
    EXPECT_EQ(Tutto(), prima);
    Scadenzario().Esegui("update Scadenze set Stato='00'" + dove);
  }
  // Read again, it goes through.
  ASSERT_TRUE(documento.Apri(2024, 12));
  dialoghi.Rispondera("euro 30,00", Risposta::Si);
  EXPECT_TRUE(documento.DeduciAnticipi(rata));
  Messaggi();
}

TEST_F(ScadenzeDocumentoTest, GuastoAMetaNonLasciaNulla) {
  const auto rata = Rata("100");
  Anticipo("-30");
  Anticipo("-90");
  const int falliti = FallisceOgniIstruzione(
      ambiente.Basi(), Guasto::Errore, [this] { return Tutto(); },
      [&] {
        if (!documento.Apri(2024, 12)) return false;
        const auto pronte = dialoghi.domande.size();
        dialoghi.Rispondera("euro 30,00", Risposta::Si);
        dialoghi.Rispondera("euro 70,00", Risposta::Si);
        const bool dedotti = documento.DeduciAnticipi(rata);
        EXPECT_EQ(dialoghi.domande.size(), pronte + 2);
        return dedotti;
      });
  EXPECT_GT(falliti, 5);
  for (const std::string& messaggio : Messaggi()) {
    EXPECT_THAT(messaggio, ::testing::AnyOf(HasSubstr("Non è stato scritto nulla"),
                                            HasSubstr("- Scadenza modificata")));
  }
  EXPECT_EQ(Com(rata), "30 0 0");
}

TEST_F(ScadenzeDocumentoTest, TestoDelleScadenze) {
  const std::vector<duedates::RataDocumento> rate = {{G(30, 4, 2024), I("1220"), "01"},
                                                     {G(31, 5, 2024), I("7.5"), "01"},
                                                     {G(5, 6, 2025), I("-333.33"), "01"}};
  EXPECT_EQ(duedates::TestoScadenze({}), "");
  EXPECT_EQ(duedates::TestoScadenze(rate),
            "  1.220,000 30.04.24 -       7,500 31.05.24 -    -333,330 05.06.25");
  // The break takes the place of the join where the next pair doesn't fit.
  EXPECT_EQ(duedates::TestoScadenze(rate, 43),
            "  1.220,000 30.04.24 -       7,500 31.05.24\n   -333,330 05.06.25");
  EXPECT_EQ(duedates::TestoScadenze(rate, 42),
            "  1.220,000 30.04.24\n      7,500 31.05.24\n   -333,330 05.06.25");
}

TEST_F(ScadenzeDocumentoTest, CosaStampaLaFattura) {
  Fattura();
  Rata("100");
  for (const auto& [riga, dare] : {std::pair{3, "-110"}, std::pair{5, "122"}}) {
    Tessarc().Inserisci(
        "Movimenti", {{"Anno", 2024}, {"NumDoc", 12}, {"TIPORIGA", riga}, {"ImpoDare", I(dare)}});
  }
  Metti(Tessarc(), "FattureCli", "TipoDoc", "FT", "Anno", 2024, "NumDoc", 7, "Riva", "1", "CFP",
        "C", "CliFor", "0001", "Dt", G(31, 1, 2024), "Pagamento", "RD30", "RaImporto", I("20"),
        "RaImporto2", I("2"), "ScadPag", "a vista");
  ASSERT_TRUE(documento.Apri(2024, 12));
  EXPECT_FALSE(documento.ConStampa());
  ASSERT_TRUE(ambiente.ScriviImpostazione({}, "config", "ScadenzePagamento", "1"));
  ASSERT_TRUE(documento.Apri(2024, 12));
  ASSERT_TRUE(documento.ConStampa());
  const auto testi = documento.Testi();
  EXPECT_EQ(testi.evidenziate, "a vista");
  EXPECT_THAT(testi.codice, HasSubstr("    100,000 "));
  EXPECT_EQ(testi.scadenzario, "    100,000 31.03.24");
  const auto suFattura = [this] {
    return Tessarc().Singolo("select ScadPag from FattureCli").Testo();
  };
  for (const char* nessuna : {"", "D"}) {
    EXPECT_FALSE(documento.ScegliStampa(nessuna));
    EXPECT_EQ(SoloMessaggio(), "selezionare A oppure B oppure C");
  }
  for (const auto& [lettera, testo] :
       {std::pair{"A", "a vista"}, std::pair{"B", testi.codice.c_str()},
        std::pair{"C", testi.scadenzario.c_str()}}) {
    EXPECT_TRUE(documento.ScegliStampa(lettera));
    EXPECT_EQ(suFattura(), testo);
  }
  Tessarc().Esegui("delete * from FattureCli");
  EXPECT_FALSE(documento.ScegliStampa("A"));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("la fattura è stata eliminata"));
}

}  // namespace
}  // namespace fenalto::prova
