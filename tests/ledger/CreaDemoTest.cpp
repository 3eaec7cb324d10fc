#include <set>

#include "ledger/CreaDemo.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {

namespace {

/// The demo of a day, opened.
struct Demo {
  explicit Demo(Data oggi) : orologio(oggi) {
    const OpzioniAmbiente opzioni = OpzioniProva(cartella.Percorso());
    const auto creata = CreaDemoSeVuota(opzioni, orologio);
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
    for (; !rs.Eof(); rs.MoveNext()) {
      for (std::size_t i = 0; i < rs.Colonne().size(); ++i) testo += rs.Fields(i).Testo() + "|";
    }
    return testo;
  }

  DialoghiFinti dialoghi;
  OrologioFinto orologio;
  CasoFinto caso;
  CartellaProva cartella;
  std::unique_ptr<Ambiente> ambiente;
};

}  // namespace

TEST(CreaDemoTest, DueAnniCredibili) {
  const Data oggi = G(24, 11, 2026);
  Demo demo(oggi);
  EXPECT_EQ(demo.ambiente->Anni(), (std::vector<int>{2025, 2026}));
  EXPECT_EQ(demo.ambiente->Config("ragsoc1 "), "EMPORIO BELLOSGUARDO S.R.L.");
  EXPECT_GE(demo.Singolo("select Count(*) from Articoli").Intero(), 120);
  EXPECT_EQ(demo.Singolo("select Count(*) from Clienti").Intero(), 25);
  EXPECT_EQ(demo.Singolo("select Count(*) from Fornitori").Intero(), 15);
  EXPECT_EQ(demo.Singolo("select Count(*) from zArticoliNonIvaDupl").Intero(), 4);
  EXPECT_LE(demo.Singolo("select Max(Dt) from Articoli").Data(), oggi);
  EXPECT_EQ(demo.Singolo("select Count(*) from ContiClientiFornitori where CFP<>'P'").Intero(), 40);
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
  SaldoConto saldo(demo.ambiente->ArchivioDi("tessarc"));
  for (const char* conto : {"100.010", "110.001"}) {
    SaldoConto::Richiesta r;
    r.conto = conto;
    r.daData = Ambiente::DataMinima();
    r.aData = oggi;
    r.anno = 2025;
    const Saldo primo = saldo.Calcola(r);
    r.anno = 2026;
    const Saldo secondo = saldo.Calcola(r);
    EXPECT_EQ(primo.Finale(), secondo.saldoIniziale) << conto;
    EXPECT_FALSE(primo.Finale().Negativo()) << conto;
    EXPECT_FALSE(secondo.Finale().Negativo()) << conto;
  }
  // There is a company now: nothing to do.
  const auto ancora = CreaDemoSeVuota(OpzioniProva(demo.cartella.Percorso()), demo.orologio);
  ASSERT_TRUE(ancora);
  EXPECT_FALSE(ancora.Valore());
}

TEST(CreaDemoTest, SempreUgualeNelloStessoGiorno) {
  Demo uno(G(1, 1, 2024));
  Demo due(G(1, 1, 2024));
  EXPECT_GE(uno.Singolo("select Count(*) from Articoli").Intero(), 80);
  EXPECT_EQ(uno.Libro(), due.Libro());
}

}  // namespace fenalto::prova
