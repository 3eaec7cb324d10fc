
#include "demo/CreaDemo.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {

namespace {

/// The demo of a day, opened.
struct Demo {
  explicit Demo(Data oggi) : orologio(oggi) {
    const OpzioniAmbiente opzioni = OpzioniProva(cartella.Percorso());
    const auto creata = demo::CreaDemoSeVuota(opzioni, orologio);
    EXPECT_TRUE(creata && creata.Valore()) << (creata ? "" : creata.Errore().messaggio);
    ambiente = std::make_unique<Ambiente>(opzioni, dialoghi, orologio, caso);
    const auto aperta = ambiente->ApriDitta("Demo");
    EXPECT_TRUE(aperta) << (aperta ? "" : aperta.Errore().messaggio);
  }

  Valore Singolo(const std::string& sql) { return ambiente->ArchivioDi("tessarc").Singolo(sql); }
  std::string Libro() {
    std::string testo;
    Rs rs = ambiente->ArchivioDi("tessarc").Recordset(
        "select * from Movimenti order by anno, numdoc, posi");
    for (; !rs.Eof(); rs.MoveNext())
      for (std::size_t i = 0; i < rs.Colonne().size(); ++i) testo += rs.Fields(i).Testo() + "|";
    return testo;
  }

  DialoghiFinti dialoghi;
  OrologioFinto orologio;
  CasoFinto caso;
  CartellaProva cartella;
  std::unique_ptr<Ambiente> ambiente;
};

}  // namespace

class CreaDemoNelGiorno : public testing::TestWithParam<Data> {};

TEST_P(CreaDemoNelGiorno, DueAnniCredibili) {
  const Data oggi = GetParam();
  Demo demo(oggi);
  const int anno = oggi.Anno();
  EXPECT_EQ(demo.ambiente->Anni(), (std::vector<int>{anno - 1, anno}));
  EXPECT_EQ(demo.ambiente->Config("ragsoc1 "), "EMPORIO BELLOSGUARDO S.R.L.");
  EXPECT_GE(demo.Singolo("select Count(*) from Articoli").Intero(), 230);
  EXPECT_EQ(demo.Singolo("select Count(*) from Clienti").Intero(), 25);
  EXPECT_EQ(demo.Singolo("select Count(*) from Fornitori").Intero(), 18);
  EXPECT_EQ(demo.Singolo("select Count(*) from zArticoliNonIvaDupl").Intero(),
            oggi < G(28, 1, anno) ? 2 : 4);
  EXPECT_LE(demo.Singolo("select Max(Dt) from Articoli").Data(), oggi);
  EXPECT_EQ(demo.Singolo("select Count(*) from ContiClientiFornitori where CFP<>'P'").Intero(), 43);
  // Numbers follow the dates.
  EXPECT_EQ(
      demo.Singolo("select Count(*) from Articoli as a, Articoli as b where a.Anno=b.Anno and "
                   "b.NumDoc=a.NumDoc+1 and b.Dt<a.Dt")
          .Intero(),
      0);
  // Every row names an account of the list, and every registration balances.
  EXPECT_EQ(demo.Singolo("select Count(*) from Movimenti left join ContiClientiFornitori on "
                         "(Movimenti.Conto=ContiClientiFornitori.Cod) and "
                         "(Movimenti.CFP=ContiClientiFornitori.CFP) where "
                         "ContiClientiFornitori.Cod is null")
                .Intero(),
            0);
  EXPECT_TRUE(demo.ambiente->ArchivioDi("tessarc")
                  .Recordset("select Anno, NumDoc from Movimenti group by Anno, NumDoc having "
                             "Sum(ImpoDare)<>Sum(ImpoAvere)")
                  .Eof());
  // Cash and bank are never below zero at the end, and what was left opens the second year.
  ledger::SaldoConto saldo(demo.ambiente->ArchivioDi("tessarc"));
  for (const char* conto : {"100.010", "110.001"}) {
    ledger::SaldoConto::Richiesta r;
    r.conto = conto;
    r.daData = Ambiente::DataMinima();
    r.aData = oggi;
    r.anno = anno - 1;
    const ledger::Saldo primo = saldo.Calcola(r);
    r.anno = anno;
    const ledger::Saldo secondo = saldo.Calcola(r);
    EXPECT_EQ(primo.Finale(), secondo.saldoIniziale) << conto;
    EXPECT_FALSE(primo.Finale().Negativo()) << conto;
    EXPECT_FALSE(secondo.Finale().Negativo()) << conto;
  }
  // There is a company now: nothing to do.
  const auto ancora = demo::CreaDemoSeVuota(OpzioniProva(demo.cartella.Percorso()), demo.orologio);
  ASSERT_TRUE(ancora);
  EXPECT_FALSE(ancora.Valore());
}

// In the middle of a year, at either end, on the day that few years have.
INSTANTIATE_TEST_SUITE_P(Giorni, CreaDemoNelGiorno,
                         testing::Values(G(24, 11, 2026), G(1, 1, 2026), G(31, 12, 2025),
                                         G(29, 2, 2028)));

TEST(CreaDemoTest, RegistriIvaScadenzeESeguito) {
  Demo demo(G(24, 11, 2026));
  const auto conta = [&](const std::string& registro) {
    return demo.Singolo("select Count(*) from Articoli where riva='" + registro + "'").Intero();
  };
  EXPECT_EQ(conta("1"), 41);  // forty and a credit note
  EXPECT_EQ(conta("3"), 42);  // forty, a credit note, a customs bill
  EXPECT_EQ(conta("4"), 1);
  EXPECT_EQ(conta("5"), 1);
  EXPECT_GE(conta("2"), 60);
  EXPECT_EQ(demo.Singolo("select Min(Dt) from Articoli where riva<>''").Data(), G(1, 9, 2026));
  for (const std::string registro : {"1", "2", "3", "4", "5"}) {
    // Protocols are 1, 2, 3, ... in order of date.
    EXPECT_EQ(
        demo.Singolo("select Max(NProt) from Articoli where riva='" + registro + "'").Intero(),
        conta(registro));
    EXPECT_EQ(demo.Singolo("select Count(*) from Articoli as a, Articoli as b where a.riva='" +
                           registro + "' and b.riva=a.riva and b.NProt=a.NProt+1 and b.Dt<a.Dt")
                  .Intero(),
              0);
  }
  // The two halves of the reverse charge cancel, and the transit accounts of VAT are at zero.
  EXPECT_TRUE(demo.Singolo("select Sum(ImpoDare)-Sum(ImpoAvere) from Movimenti where "
                           "Conto='900.220'")
                  .Importo()
                  .Zero());
  // Cost to the foreign supplier, customs giro, withholdings; and what is paid at once.
  const auto origine = [&](int numero) {
    return demo
        .Singolo("select Count(*) from Articoli where CREATOINAUTOMATICO=" + std::to_string(numero))
        .Intero();
  };
  EXPECT_EQ(origine(52), 2);
  EXPECT_GE(origine(53), 2);
  EXPECT_GE(origine(24), 1);
  EXPECT_EQ(
      demo.Singolo(
              "select Sum(ImpoAvere)-Sum(ImpoDare) from Movimenti where CFP='F' and Conto='0016'")
          .Importo(),
      demo.Singolo("select Sum(ImpoDare) from Movimenti where Causale='029'").Importo());
  Archivio& scadenzario = demo.ambiente->ArchivioDi("scadenzario");
  EXPECT_GE(scadenzario.Singolo("select Count(*) from Scadenze").Intero(), 80);
  EXPECT_EQ(scadenzario.Singolo("select Count(*) from Banche").Intero(), 3);
  // What has fallen due is paid, but for the customers who are late; the ledger says the same.
  const std::string scadute = "select Count(*) from Scadenze where Stato<'30' and Dt<=#11/23/2026#";
  EXPECT_EQ(scadenzario.Singolo(scadute + " and CFP='F'").Intero(), 0);
  EXPECT_GT(scadenzario.Singolo(scadute + " and CFP='C'").Intero(), 0);
  EXPECT_GE(origine(22), 10);
  EXPECT_EQ(scadenzario.Singolo("select Sum(ImportoPagatoE) from Scadenze where CFP='F'").Importo(),
            demo.Singolo("select Sum(ImpoDare)-Sum(ImpoAvere) from Movimenti as m, Articoli as a "
                         "where m.Anno=a.Anno and m.NumDoc=a.NumDoc and "
                         "a.CREATOINAUTOMATICO=22 and m.CFP='F'")
                .Importo());
}

TEST(CreaDemoTest, SempreUgualeNelloStessoGiorno) {
  // Documents of both years, the first of which opens the second.
  Demo uno(G(10, 1, 2024));
  Demo due(G(10, 1, 2024));
  EXPECT_GE(uno.Singolo("select Count(*) from Articoli").Intero(), 80);
  EXPECT_EQ(uno.Libro(), due.Libro());
}

}  // namespace fenalto::prova
