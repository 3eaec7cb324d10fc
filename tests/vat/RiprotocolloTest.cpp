// Protocols given anew in order of date.
#include "core/sql/Criterio.h"
#include "ledger/GuastiDiProva.h"
#include "vat/FatturaDiProva.h"

namespace fenalto::prova {
namespace {

class RiprotocolloTest : public FatturaDiProva {
 protected:
  void SetUp() override {
    // Protocol by day of registration and of invoice: 1, 2, 4 and 6, out of order.
    for (const auto& [nProt, giorno, giornoFat] :
         {std::tuple{1, 20, 5}, {2, 10, 4}, {4, 10, 3}, {6, 15, 1}}) {
      ASSERT_NE(Inserisci({.riva = "3",
                           .parte = "0001",
                           .righe = {{"500.001", "22", I("100")}},
                           .pagamento = "DUE",
                           .dt = G(giorno, 3, 2024),
                           .altri = {{"NProt", std::to_string(nProt)},
                                     {"DtFat", G(giornoFat, 3, 2024)}}}),
                0);
    }
    ASSERT_TRUE(fatture.ScegliRegistro("3"));
    Messaggi();
  }
  /// Protocols in order of registration, and of the first due date of each.
  std::vector<std::int64_t> Protocolli() {
    std::vector<std::int64_t> letti;
    for (Rs r = Tessarc().Recordset("select NumDoc, NProt from Articoli order by NumDoc"); !r.Eof();
         r.MoveNext()) {
      letti.push_back(r.Fields(1).Intero());
      EXPECT_EQ(Scadenzario()
                    .Singolo("select Max(NProt) from Scadenze where " +
                             sql::Criterio("Articolo", "=", r.Fields(0).Intero()))
                    .Intero(),
                letti.back());
    }
    return letti;
  }
  vat::RegistrazioneIva fatture{ambiente};
};

TEST_F(RiprotocolloTest, Rifiuti) {
  Tessarc().Inserisci("UltProtStRegIva", {{"Anno", 2024}, {"Riva", "3"}, {"UltProtSt", 1}});
  const std::string prima = Tutto();
  struct Caso {
    std::int64_t da, a;
    const char* messaggio;
  };
  for (const Caso& caso : {Caso{0, 6, "impostare da/a n.protocollo"},
                           {2, 0, "impostare da/a n.protocollo"},
                           {4, 3, "impostare da/a n.protocollo"},
                           {1, 6, "'Da n.protocolo' minore dell'ultimo stampato sul registro"},
                           {2, 7, "'A n.protocolo' maggiore dell'ultimo registrato"}}) {
    EXPECT_FALSE(fatture.Riprotocolla(caso.da, caso.a));
    EXPECT_EQ(SoloMessaggio(), caso.messaggio);
  }
  dialoghi.Rispondera("Conferma RIPROTOCOLLO fatture acquisto ?", Risposta::No);
  EXPECT_FALSE(fatture.Riprotocolla(2, 6));
  dialoghi.Rispondera("Conferma RIPROTOCOLLO fatture acquisto ?", Risposta::Si);
  EXPECT_FALSE(fatture.Riprotocolla(2, 4));
  EXPECT_EQ(SoloMessaggio(),
            "Impossibile riprotocollare: manca n.prot. 3  e non è stato impostato fino all'ultimo "
            "n. protocollo");
  ASSERT_TRUE(fatture.ScegliRegistro("1"));
  EXPECT_FALSE(fatture.Riprotocolla(1, 1)) << "sales keep theirs";
  EXPECT_EQ(Tutto(), prima);
}

TEST_F(RiprotocolloTest, FinoAllUltimoChiudeIBuchi) {
  dialoghi.Rispondera("RIPROTOCOLLO fatture acquisto", Risposta::Si);
  EXPECT_TRUE(fatture.Riprotocolla(1, 6));
  EXPECT_EQ(SoloMessaggio(),
            "Riprotocollo eseguito: stampare il registro iva in prova per rilevare i nuovi numeri "
            "di protocollo assegnati dal programma");
  EXPECT_THAT(Protocolli(), ElementsAre(4, 2, 1, 3));
}

TEST_F(RiprotocolloTest, UnPezzoSenzaBuchi) {
  dialoghi.Rispondera("RIPROTOCOLLO", Risposta::Si);
  EXPECT_TRUE(fatture.Riprotocolla(1, 2));
  EXPECT_THAT(Protocolli(), ElementsAre(2, 1, 4, 6));
}

TEST_F(RiprotocolloTest, Corrispettivi) {
  for (const int giorno : {20, 10}) {
    ASSERT_NE(
        Inserisci({.riva = "2", .righe = {{"700.010", "20", I("1")}}, .dt = G(giorno, 3, 2024)}),
        0);
  }
  ASSERT_TRUE(fatture.ScegliRegistro("2"));
  Messaggi();
  dialoghi.Rispondera("Conferma RIPROTOCOLLO corrispettivi ?", Risposta::Si);
  EXPECT_TRUE(fatture.Riprotocolla(1, 2));
  EXPECT_EQ(SoloMessaggio(), "Riprotocollo eseguito");
  EXPECT_EQ(CampoTestata(5, "NProt").Intero(), 2);
  EXPECT_EQ(CampoTestata(6, "NProt").Intero(), 1);
}

TEST_F(RiprotocolloTest, ChiHaLaSchedaApertaNonDuplicaIlProtocollo) {
  const auto altra = NuovaStazione("CASSA");
  vat::RegistrazioneIva aperta(*altra->ambiente);
  ASSERT_TRUE(aperta.Apri(1));
  dialoghi.Rispondera("RIPROTOCOLLO", Risposta::Si);
  EXPECT_TRUE(fatture.Riprotocolla(1, 6));
  aperta.Conferma();
  // Whatever became of it, a number is on one document.
  for (Rs r = Tessarc().Recordset("select NProt, Count(*) from Articoli where Riva='3' group by "
                                  "NProt");
       !r.Eof(); r.MoveNext()) {
    EXPECT_EQ(r.Fields(1).Intero(), 1);
  }
}

TEST_F(RiprotocolloTest, OgniGuasto) {
  const int guasti = FallisceOgniIstruzione(
      ambiente.Basi(), Guasto::Errore, [this] { return Tutto(); },
      [this] {
        dialoghi.Rispondera("RIPROTOCOLLO", Risposta::Si);
        try {
          return fatture.Riprotocolla(1, 6);
        } catch (const ErroreArchivio&) {
          // Before the question: a window tells it.
          dialoghi.Domanda("RIPROTOCOLLO", Bottoni::SiNo, Risposta::No);
          throw;
        }
      });
  EXPECT_GE(guasti, 10);
  EXPECT_THAT(Protocolli(), ElementsAre(4, 2, 1, 3));
}

}  // namespace
}  // namespace fenalto::prova
