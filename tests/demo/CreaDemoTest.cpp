#include <map>

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
    Rs merce = ambiente->ArchivioDi("tessarc").Recordset(
        "select * from FattureCli_r order by tipodoc, anno, numdoc, posi");
    for (Rs* righe : {&rs, &merce}) {
      for (; !righe->Eof(); righe->MoveNext())
        for (std::size_t i = 0; i < righe->Colonne().size(); ++i)
          testo += righe->Fields(i).Testo() + "|";
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

class CreaDemoNelGiorno : public testing::TestWithParam<Data> {};

TEST_P(CreaDemoNelGiorno, DueAnniCredibili) {
  const Data oggi = GetParam();
  Demo demo(oggi);
  const int anno = oggi.Anno();
  EXPECT_EQ(demo.ambiente->Anni(), (std::vector<int>{anno - 1, anno}));
  EXPECT_EQ(demo.ambiente->Config("ragsoc1 "), "EMPORIO BELLOSGUARDO S.R.L.");
  EXPECT_GE(demo.Singolo("select Count(*) from Articoli").Intero(), 230);
  EXPECT_EQ(demo.Singolo("select Count(*) from Clienti").Intero(), 25);
  EXPECT_EQ(demo.Singolo("select Count(*) from Fornitori").Intero(), 19);
  EXPECT_EQ(demo.Singolo("select Count(*) from zArticoliNonIvaDupl").Intero(),
            oggi < G(28, 1, anno) ? 2 : 4);
  EXPECT_LE(demo.Singolo("select Max(Dt) from Articoli").Data(), oggi);
  EXPECT_EQ(demo.Singolo("select Count(*) from ContiClientiFornitori where CFP<>'P'").Intero(), 44);
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

/// Stock by year, product and warehouse at the end of each day; what is below zero, and since when.
std::map<std::string, Data> SottoZero(Demo& demo) {
  std::map<std::string, Data> sotto;
  std::map<std::string, Importo> giacenze;
  Rs rs = demo.ambiente->ArchivioDi("tessarc").Recordset(
      "select Anno, Dt, CodiceRiga, Mag, Sum(IIf(CS='C', Quantita, -Quantita)) as q from "
      "FattureCli_r group by Anno, Dt, CodiceRiga, Mag order by Anno, Dt");
  for (; !rs.Eof(); rs.MoveNext()) {
    const std::string dove = rs.Fields("Anno").Testo() + " " + rs.Fields("CodiceRiga").Testo() +
                             " " + rs.Fields("Mag").Testo();
    Importo& giacenza = giacenze[dove];
    giacenza += rs.Fields("q").Importo();
    if (giacenza.Negativo()) sotto.emplace(dove, rs.Fields("Dt").Data());
  }
  return sotto;
}

TEST(CreaDemoTest, MagazzinoDiDueAnni) {
  for (const Data oggi : {G(24, 11, 2026), G(1, 1, 2026), G(29, 2, 2028)}) {
    SCOPED_TRACE(oggi.Testo());
    Demo demo(oggi);
    EXPECT_EQ(demo.Singolo("select Count(*) from CodiciRiga").Intero(), 150);
    EXPECT_EQ(demo.Singolo("select Count(*) from prodottiFor_r").Intero(), 150);
    EXPECT_EQ(demo.Singolo("select Count(*) from CodiciRiga where Prezzo<=CostoDigitato").Intero(),
              0);
    EXPECT_LE(demo.Singolo("select Max(Dt) from FattureCli").Data(), oggi);
    for (const char* tipo : {"EI", "01", "02", "10", "11", "12", "20", "21", "40"}) {
      EXPECT_NE(
          demo.Singolo(std::string("select Count(*) from FattureCli where TipoDoc='") + tipo + "'")
              .Intero(),
          0)
          << tipo;
    }
    EXPECT_EQ(demo.Singolo("select Count(*) from FattureCli where Riva<>''").Intero(), 0);
    // Never below zero but for three, which the document tells.
    const auto sotto = SottoZero(demo);
    ASSERT_EQ(sotto.size(), 3U);
    for (const auto& [dove, quando] : sotto) EXPECT_EQ(quando, oggi) << dove;
    EXPECT_EQ(demo.Singolo("select Count(*) from FattureCli_r as r, FattureCli as f where "
                           "r.TipoDoc=f.TipoDoc and r.Anno=f.Anno and r.NumDoc=f.NumDoc and "
                           "f.Varie1='Merce consegnata prima di registrarne il carico'")
                  .Intero(),
              3);
    // What the first year ended with opens the second.
    const auto totale = [&](const std::string& quale) {
      return demo
          .Singolo("select Sum(IIf(CS='C', Quantita, -Quantita)) from FattureCli_r where " + quale)
          .Importo();
    };
    const std::string prima = std::to_string(oggi.Anno() - 1);
    EXPECT_EQ(totale("Anno=" + prima),
              totale("TipoDoc='EI' and Anno=" + std::to_string(oggi.Anno())));
    // A transfer takes from one warehouse what it brings to the other.
    EXPECT_TRUE(totale("TipoDoc='20' or TipoDoc='21'").Zero());
    EXPECT_EQ(demo.Singolo("select Count(*) from FattureCli where TipoDoc='21'").Intero(),
              demo.Singolo("select Count(*) from FattureCli where TipoDocOrigine='20'").Intero());
  }
}

TEST(CreaDemoTest, SempreUgualeNelloStessoGiorno) {
  // Documents of both years, the first of which opens the second.
  Demo uno(G(10, 1, 2024));
  Demo due(G(10, 1, 2024));
  EXPECT_GE(uno.Singolo("select Count(*) from Articoli").Intero(), 80);
  EXPECT_EQ(uno.Libro(), due.Libro());
}

}  // namespace fenalto::prova
