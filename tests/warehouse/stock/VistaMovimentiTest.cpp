// The movements of a product row by row, and the panels beside it.
#include "warehouse/stock/MagazzinoDiProva.h"
#include "warehouse/stock/PannelloEsistenza.h"
#include "warehouse/stock/StampaMovimenti.h"
#include "warehouse/stock/VistaMovimenti.h"

namespace fenalto::prova {
namespace {

using warehouse::GenereMovimento;
using warehouse::RigaMovimento;

class VistaMovimentiTest : public MagazzinoDiProva {
 protected:
  /// "description|loads|unloads|stock", a row.
  std::vector<std::string> Vista(const warehouse::FiltroMovimenti& filtro) {
    std::vector<std::string> righe;
    std::int64_t num = 0;
    for (const RigaMovimento& r : warehouse::LeggiMovimenti(ambiente, filtro)) {
      EXPECT_EQ(r.num, ++num);
      righe.push_back(r.descrizione + "|" + r.carichi.Testo() + "|" + r.scarichi.Testo() + "|" +
                      r.esistenza.Testo());
    }
    return righe;
  }
};

TEST_F(VistaMovimentiTest, RigheSommeETotali) {
  Riga({.quantita = "10", .prezzo = "20", .dt = G(5, 1, 2024), .sc1 = "10"});
  Riga({.cs = "S",
        .quantita = "4",
        .dt = G(5, 2, 2024),
        .mag = "01",
        .tipo = "XS",
        .causale = "XS"});
  Riga({.quantita = "1", .dt = G(5, 3, 2024), .mag = "01"});
  Riga({.cs = "", .quantita = "9", .dt = G(5, 3, 2024)});
  Riga({.quantita = "9", .dt = G(5, 3, 2023)});
  EXPECT_THAT(Vista({.prodotto = "P1"}),
              ElementsAre("XC Carico di prova|10|0|10", "XS Scarico di prova|0|4|6",
                          "XC Carico di prova|1|0|7", "totali|11|4|7"));
  EXPECT_THAT(Vista({.prodotto = "P1", .daDt = G(1, 3, 2024)}),
              ElementsAre("Movimentazione prima del 01/03/2024|10|4|6", "XC Carico di prova|1|0|7",
                          "totali|11|4|7"));
  EXPECT_THAT(Vista({.prodotto = "P1", .daDt = G(1, 2, 2024), .aaDt = G(29, 2, 2024)}),
              ElementsAre("Movimentazione prima del 01/02/2024|10|0|10",
                          "XS Scarico di prova|0|4|6", "totali|10|4|6"));
  EXPECT_THAT(
      Vista({.prodotto = "P1", .mag = "01"}),
      ElementsAre("XS Scarico di prova|0|4|-4", "XC Carico di prova|1|0|-3", "totali|1|4|-3"));
  EXPECT_THAT(Vista({.prodotto = "P1", .tipoDoc = "XS"}),
              ElementsAre("XS Scarico di prova|0|4|-4", "totali|0|4|-4"));
  EXPECT_STREQ(warehouse::VistaMovimenti::TitoloEsistenza({.prodotto = "P1", .mag = "01"}),
               "somma");
  EXPECT_STREQ(warehouse::VistaMovimenti::TitoloEsistenza({}), "esistenza");
  EXPECT_THAT(Vista({.prodotto = "P2"}), ElementsAre("totali|0|0|0"));
  EXPECT_EQ(warehouse::LeggiMovimenti(ambiente, {.prodotto = "P1"})[0].prezzo, I("0"));
  EXPECT_EQ(warehouse::LeggiMovimenti(ambiente, {.prodotto = "P1", .anchePrezzi = true})[0].prezzo,
            I("18"));
}

TEST_F(VistaMovimentiTest, VistaVeloce) {
  for (int i = 1; i <= 100; ++i) Riga({.quantita = "1", .numero = i});
  EXPECT_EQ(Vista({.prodotto = "P1", .veloce = true}).size(), 101U);
  Riga({.quantita = "1", .numero = 101});
  const auto righe = Vista({.prodotto = "P1", .veloce = true});
  ASSERT_EQ(righe.size(), 84U);
  EXPECT_EQ(righe[79], "XC Carico di prova|1|0|80");
  EXPECT_EQ(righe[81], "      premere bottone REFRESH|0|0|0");
  EXPECT_EQ(righe[82], "      per vedere tutti i   |0|0|0");
  EXPECT_EQ(righe[83], "      movimenti successivi   |0|0|0");
  EXPECT_EQ(Vista({.prodotto = "P1"}).back(), "totali|101|0|101");
}

TEST_F(VistaMovimentiTest, Descrizione) {
  Metti(Tessarc(), "ContiClientiFornitori", "Cod", "X9", "CFP", "F", "Descrizione", "Ferro srl");
  Metti(Tessarc(), "OrdiniFor", "TipoDoc", "O", "NumDoc", 4, "Dt", G(2, 1, 2024), "Riferim",
        "rif.A");
  Metti(Tessarc(), "OrdiniCli", "TipoDoc", "O", "NumDoc", 4, "Dt", G(3, 1, 2024), "Riferim",
        "rif.B");
  Metti(Tessarc(), "Commesse", "NumDoc", 7, "RifInt", "cancello");
  Riga({.ordine = 4});
  Tessarc().Esegui(
      "update FattureCli_r set CliFor='X9', NumDocCarico='55/B', DtDocCarico=#02/08/2024#, "
      "Lotto='L1', DtScad=#12/31/2024#, NL1=3");
  Riga({.cs = "S",
        .dt = G(1, 3, 2024),
        .tipo = "XS",
        .causale = "XS",
        .cfp = "C",
        .ordine = 4,
        .commessa = 7});
  Tessarc().Esegui("update FattureCli_r set NL2=3, OrdineSaldato=True where TipoDoc='XS'");
  const auto righe = warehouse::LeggiMovimenti(ambiente, {.prodotto = "P1"});
  EXPECT_EQ(righe.at(0).descrizione,
            "XC Carico di prova\nX9 Ferro srl\nestremi doc. 55/B 08/02/2024\n"
            "in conto ordine 4-02/01/2024 rif.A\nLOTTO L1 scad.31/12/2024");
  EXPECT_EQ(righe.at(1).descrizione,
            "XS Scarico di prova\na saldo ordine 4-03/01/2024 rif.B\ncommessa 7 cancello\n"
            "LOTTO L1 scad.31/12/2024");
}

TEST_F(VistaMovimentiTest, Pannello) {
  Riga({.quantita = "12.5", .prezzo = "3", .mag = "01", .numero = 8});
  Riga({.quantita = "2", .mag = ""});
  auto pannello = warehouse::LeggiPannelloEsistenza(ambiente, "P1");
  EXPECT_THAT(pannello.list2,
              ElementsAre("esistenza suddivisa per magazzini:",
                          "01       Sede                                    12,50",
                          "02       Deposito                                 0,00",
                          "esistenza totale                                 14,50"));
  EXPECT_THAT(pannello.list3, ElementsAre(" ordinato forn.                          0,00       ",
                                          " impegn.cli/com.                         0,00       ",
                                          " disponibile                            14,50       ",
                                          " disponibile reale                      14,50       ",
                                          "Costo Ultimo                  3,00       ",
                                          "Costo Medio                   2,59       ",
                                          "data ultimo carico 10/02/24 ",
                                          "ultimo movimento XC-8-2024           (tipo-Ndoc-anno)"));
  Tessarc().Esegui("delete * from Magazzini");
  pannello = warehouse::LeggiPannelloEsistenza(ambiente, "P1");
  EXPECT_THAT(pannello.list2, ElementsAre(HasSubstr("esistenza totale")));
  // The new year's panel says that the old one's stock isn't in it.
  ASSERT_TRUE(ambiente.ScegliAnno(2025));
  EXPECT_THAT(warehouse::LeggiPannelloEsistenza(ambiente, "P1").list2.back(), HasSubstr("2024"));
  Metti(Tessarc(), "FattureCli", "TipoDoc", "EI", "Anno", 2025, "NumDoc", 1);
  EXPECT_EQ(warehouse::AvvisoTrasporto(ambiente), "");
}

TEST_F(VistaMovimentiTest, StampaEFoglio) {
  Metti(Tessarc(), "OrdiniFor", "TipoDoc", "O", "NumDoc", 4, "Dt", G(2, 1, 2024), "Riferim",
        "una conferma del fornitore");
  Riga({.quantita = "10", .prezzo = "20", .ordine = 4});
  warehouse::StampaMovimenti stampa(ambiente, uscite);
  warehouse::SceltaMovimenti scelta{.filtro = {.prodotto = "P1", .mag = "01"}};
  Riga({.cs = "S", .quantita = "4", .mag = "01", .tipo = "XS", .numero = 12, .causale = "XS"});
  Verso(Destinazione::Testo);
  EXPECT_TRUE(stampa.Stampa(scelta));
  for (const char* parte : {"P1 Vite 4x30", "solo magazzino 01", "scarichi        somma\n",
                            "XS Scarico di prova                           01   10/02/2024 XS      "
                            "  12         0,00"}) {
    EXPECT_THAT(uscite.Testo(), HasSubstr(parte));
  }
  scelta.filtro = {.prodotto = "P1", .anchePrezzi = true};
  Verso(Destinazione::Testo);
  EXPECT_TRUE(stampa.Stampa(scelta));
  EXPECT_THAT(uscite.Testo(), AllOf(HasSubstr("XC Carico di prova; in conto ordine"),
                                    HasSubstr("\n4-02/01/2024 una"), HasSubstr("20,00\n")));
  Verso(Destinazione::Pdf);
  scelta.stGrafico = true;
  EXPECT_TRUE(stampa.Stampa(scelta));
  EXPECT_THAT(uscite.Scritte(), AllOf(Contains("esistenza"), Contains("prezzo"), Contains("P1")));
  EXPECT_EQ(stampa.Foglio(scelta).righe.size(), 3U);
  scelta.filtro.prodotto = "ZZ";
  EXPECT_FALSE(stampa.Stampa(scelta));
  EXPECT_EQ(SoloMessaggio(), "digitare un codice prodotto");
}

TEST_F(VistaMovimentiTest, AndamentoDodiciMesi) {
  Riga({.quantita = "3", .dt = G(31, 5, 2023)});
  Riga({.cs = "S", .quantita = "1", .dt = G(1, 11, 2023), .tipo = "XS"});
  Riga({.quantita = "10", .dt = G(31, 1, 2024)});
  Riga({.quantita = "5", .dt = G(20, 3, 2024), .mag = "01"});
  std::string punti;
  for (const auto& punto : warehouse::AndamentoEsistenza(ambiente, "P1")) {
    punti += punto.fineMese.Testo().substr(0, 5) + "=" + punto.esistenza.Testo() + " ";
  }
  EXPECT_EQ(punti,
            "30/04=0 31/05=3 30/06=3 31/07=3 31/08=3 30/09=3 31/10=3 30/11=2 31/12=2 31/01=10 "
            "29/02=10 31/03=15 ");
  EXPECT_EQ(warehouse::AndamentoEsistenza(ambiente, "P1", "01").back().esistenza, I("5"));
}

}  // namespace
}  // namespace fenalto::prova
