// Register and cards: which assets, their figures at the end of a year, totals, on paper and sheet.
#include "assets/CespitiDiProva.h"

namespace fenalto::prova {
namespace {

class RegistroCespitiTest : public CespitiDiProva {
 protected:
  RegistroCespitiTest() {
    Scrivi(1, "X1", G(1, 3, 2022),
           {Mov(2022, "100", "1000"), Mov(2022, "400", "100"), Mov(2023, "400", "200"),
            Mov(2024, "400", "200")},
           " furgone");
    Scrivi(2, "X1", G(1, 3, 2022), {Mov(2022, "100", "500"), Mov(2022, "400", "500")}, " allarme");
    Scrivi(3, "X1", G(1, 3, 2022),
           {Mov(2022, "100", "500"), Mov(2022, "400", "200"), Mov(2023, "500", "500")});
    Scrivi(4, "X2", G(1, 3, 2024), {Mov(2024, "100", "300")});
    Tessarc().Esegui("update Cespiti set CespCorr=1 where NCesp=2");
    Tessarc().Esegui("update Cespiti set Codice='AB', sn='S7', Ubicaz='magazzino' where NCesp=1");
  }
  std::string Stampa(const assets::SceltaRegistro& scelta) {
    Verso(Destinazione::Testo);
    EXPECT_TRUE(registro.Stampa(scelta));
    return uscite.Testo();
  }
  static assets::SceltaRegistro Al(int anno) {
    assets::SceltaRegistro scelta;
    scelta.finoAllAnno = anno;
    scelta.categorie = {"X1", "X3"};
    return scelta;
  }
  std::vector<std::int64_t> Numeri(const assets::SceltaRegistro& scelta) {
    std::vector<std::int64_t> numeri;
    assets::ScorriRegistro(ambiente, scelta, [&](const auto& voce, auto) {
      numeri.push_back(voce.cespite.nCesp);
      return true;
    });
    return numeri;
  }

  assets::RegistroCespiti registro{ambiente, uscite};
};

TEST_F(RegistroCespitiTest, QualiCespiti) {
  EXPECT_THAT(Numeri(Al(2024)), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(Numeri(Al(2023)), ElementsAre(1, 2, 3));
  auto scelta = Al(2022);
  scelta.noAmmCompl = true;
  scelta.noDismesso = true;  // at the end of 2022 nothing was sold yet
  EXPECT_THAT(Numeri(scelta), ElementsAre(1, 3));
  scelta.finoAllAnno = 2023;
  EXPECT_THAT(Numeri(scelta), ElementsAre(1));
  scelta = Al(2024);
  scelta.soloAnnoEntrInFunz = 2024;
  EXPECT_THAT(Numeri(scelta), ElementsAre(4));
  scelta = Al(2024);
  scelta.categorie = {"", ""};
  scelta.ordine = assets::OrdineCespiti::Codice;
  EXPECT_THAT(Numeri(scelta), ElementsAre(2, 3, 1, 4));
  EXPECT_FALSE(registro.Stampa({}));
  EXPECT_EQ(SoloMessaggio(), "impostare anno");
  EXPECT_FALSE(registro.Stampa(Al(2000)));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("nessun cespite da stampare"));
}

TEST_F(RegistroCespitiTest, RegistroDiTesto) {
  const std::string testo = Stampa(Al(2023));
  for (const char* riga :
       {" SITUAZIONE CESPITI AMMORTIZZABILI ANNO  2023", "DA CATEGORIA X1       A X3",
        "                                                                  COSTO  FONDO PREC. "
        "QUOTA "
        "ANNO  FONDO ATT.     RESIDUO\n",
        " CATEGORIA X1       Attrezzi\n", " Cod./S/N/Ub. AB/S7/magazzino\n",
        " cesp.correlato 2  bene 2 allarme\n", " Cesp.di rif.1 AB bene 1 furgone\n",
        " In funzione dal 01/03/2022  Ultimo anno 2023,\n",
        "                                                                1000,000     100,000     "
        "200,000     300,000     700,000\n",
        "Ammortamento completato", "Cespite dismesso",
        "          Dismesso nell'anno  2023     500,000 minus/plusval     200,000"}) {
    EXPECT_THAT(testo, HasSubstr(riga));
  }
  // 1000 + 500 + 500, funds of the end of 2023.
  EXPECT_THAT(testo, HasSubstr("TOTALE GENERALE                                                "));
  EXPECT_THAT(testo, HasSubstr("2000,000     800,000     200,000    1000,000    1000,000"));
  EXPECT_THAT(Stampa(Al(2026)),
              HasSubstr(" Attenzione: mancano registrazioni ammortamenti anno/i 2025/2026 oppure "
                        "manca la dismissione"));
}

TEST_F(RegistroCespitiTest, SchedeDiTesto) {
  auto scelta = Al(2024);
  scelta.schede = true;
  const std::string testo = Stampa(scelta);
  for (const char* riga :
       {"CAUSALE          ESTREMI ACQUISTI, % AMMORT., DISMISSIONI        COSTO  FONDO PREC. QUOTA "
        "ANNO  ACCANTONATO    RESIDUO\n",
        "Costo originario                                   1000,000\n",
        "------ Anno 2022 ------------------------------------------ ----------- -----------",
        "                                                               1000,000     300,000     "
        "200,000     500,000     500,000        *\n",
        "                 Minusvalenza/Plusvalenza           200,000\n"}) {
    EXPECT_THAT(testo, HasSubstr(riga));
  }
}

TEST_F(RegistroCespitiTest, GraficoEFoglioDiconoLoStesso) {
  auto scelta = Al(2023);
  scelta.stGrafico = true;
  Verso(Destinazione::Pdf);
  ASSERT_TRUE(registro.Stampa(scelta));
  EXPECT_THAT(uscite.Scritte(), Contains("CATEGORIA X1 Attrezzi"));
  EXPECT_THAT(uscite.Scritte(), Contains("bene 1 furgone"));
  EXPECT_THAT(uscite.Scritte(), Contains("1.000,00"));
  const reports::Foglio foglio = registro.Foglio(scelta);
  ASSERT_EQ(foglio.righe.size(), 5U);  // three assets, their category, all
  EXPECT_EQ(foglio.righe[0].back().Testo(), "");
  EXPECT_EQ(foglio.righe[1].back().Testo(), "completato");
  EXPECT_EQ(foglio.righe[2].back().Testo(), "dismesso 2023");
  scelta.schede = true;
  const reports::Foglio schede = registro.Foglio(scelta);
  EXPECT_THAT(schede.totali, IsEmpty());
  EXPECT_EQ(schede.righe.size(), 5U + 3U + 6U);  // rows, totals of years, the gain
}

}  // namespace
}  // namespace fenalto::prova
