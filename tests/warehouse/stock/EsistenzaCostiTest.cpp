// Stock and costs of one product: what counts, and what doesn't.
#include "warehouse/stock/MagazzinoDiProva.h"

namespace fenalto::prova {
namespace {

using warehouse::Costi;
using warehouse::Esistenza;

class EsistenzaCostiTest : public MagazzinoDiProva {
 protected:
  void Ordine(const char* tabella, const char* tipo, const char* quantita, bool saldato = false) {
    Metti(Tessarc(), tabella, "TipoDoc", tipo, "NumDoc", ++numero_, "Posi", 1, "CodiceRiga", "P1",
          "Quantita", I(quantita), "OrdineSaldato", saldato);
  }
  std::int64_t numero_ = 0;
};

TEST_F(EsistenzaCostiTest, FigureDiUnProdotto) {
  Riga({.quantita = "10.5", .mag = "01"});
  Riga({.quantita = "5"});
  Riga({.cs = "S", .quantita = "3", .mag = "01", .tipo = "XS", .cfp = "C"});
  Riga({.cs = "", .quantita = "100"});
  Riga({.quantita = "1000", .dt = G(31, 12, 2023)});
  Riga({.prodotto = "P2", .quantita = "7"});
  Esistenza e = warehouse::CalcoloEsistenza(ambiente, "p1");
  EXPECT_EQ(e.carichi, I("15.5"));
  EXPECT_EQ(e.scarichi, I("3"));
  EXPECT_EQ(e.esistenza, I("12.5"));
  EXPECT_EQ(warehouse::CalcoloEsistenza(ambiente, "P1", {.mag = "01"}).esistenza, I("7.5"));
  EXPECT_EQ(warehouse::CalcoloEsistenza(ambiente, "P1", {.mag = "02"}).esistenza, I("0"));
  EXPECT_EQ(warehouse::CalcoloEsistenza(ambiente, "P1", {.finoAl = G(9, 2, 2024)}).esistenza,
            I("0"));
  EXPECT_EQ(warehouse::CalcoloEsistenza(ambiente, "P1", {.finoAl = G(10, 2, 2024)}).esistenza,
            I("12.5"));
  EXPECT_EQ(warehouse::CalcoloEsistenza(ambiente, "P3").carichi, I("0"));
}

/// Orders and jobs, with what documents have served of them; neither warehouse nor day matters.
TEST_F(EsistenzaCostiTest, ImpegnatoEOrdinato) {
  Ordine("OrdiniCli_r", "O", "10");       // 1
  Ordine("OrdiniCli_r", "O", "5", true);  // 2
  Ordine("OrdiniCli_r", "F", "50");       // 3
  Riga({.cs = "S", .quantita = "4", .dt = G(1, 1, 2023), .tipo = "XS", .cfp = "C", .ordine = 1});
  Riga({.cs = "", .quantita = "9", .cfp = "F", .ordine = 1});  // a supplier's row
  Riga({.cs = "S", .quantita = "2", .tipo = "XS", .cfp = "C", .ordine = 2});
  Metti(Tessarc(), "Commesse_r", "NumDoc", 7, "Posi", 1, "CodiceRiga", "P1", "Quantita", I("3"));
  Metti(Tessarc(), "Commesse_r", "NumDoc", 8, "Posi", 1, "CodiceRiga", "P1", "Quantita", I("60"),
        "Ut", true);
  Riga({.cs = "S", .quantita = "8", .tipo = "XS", .cfp = "C", .commessa = 7});
  Riga({.cs = "C", .quantita = "1", .commessa = 7});  // a load serves no job
  Ordine("OrdiniFor_r", "O", "20");                   // 4
  Ordine("OrdiniFor_r", "F", "70");
  Riga({.quantita = "25", .cfp = "F", .ordine = 4});  // beyond its quantity
  for (const warehouse::FiltroEsistenza& filtro :
       {warehouse::FiltroEsistenza{}, {.mag = "02"}, {.finoAl = G(1, 1, 2024)}}) {
    const Esistenza e = warehouse::CalcoloEsistenza(ambiente, "P1", filtro);
    EXPECT_EQ(e.impegnato, I("1"));  // 10-4 of the order, 3-8 of the job
    EXPECT_EQ(e.ordinato, I("-5"));
    EXPECT_EQ(e.disponibile, e.esistenza - I("6"));
    EXPECT_EQ(e.disponibileReale, e.esistenza - I("1"));
  }
}

struct CasoCosti {
  const char* nome;
  std::vector<RigaMag> righe;
  const char* ultimo;
  const char* medio;
  const char* valore;
  std::int64_t numDoc;  ///< of the last load
};

class CostiTest : public MagazzinoDiProva, public ::testing::WithParamInterface<CasoCosti> {};

TEST_P(CostiTest, DaiCarichi) {
  for (const RigaMag& riga : GetParam().righe) Riga(riga);
  const Costi costi = warehouse::CalcoloCosti(ambiente, "P1");
  EXPECT_EQ(costi.ultimo, I(GetParam().ultimo));
  EXPECT_EQ(costi.medio, I(GetParam().medio));
  EXPECT_EQ(costi.valoreCarichi, I(GetParam().valore));
  EXPECT_EQ(costi.numDoc, GetParam().numDoc);
  EXPECT_EQ(costi.ultimoCarico.Nulla(), GetParam().numDoc == 0);
}

INSTANTIATE_TEST_SUITE_P(
    Costi, CostiTest,
    ::testing::Values(
        CasoCosti{"Senza", {}, "0", "0", "0", 0},
        CasoCosti{"SoloAZero", {{.quantita = "5", .numero = 3}}, "0", "0", "0", 3},
        CasoCosti{
            "ScontoPieno",
            {{.quantita = "1", .prezzo = "8"},
             {.quantita = "1", .prezzo = "10", .dt = G(11, 2, 2024), .numero = 2, .sc1 = "100"}},
            "8",
            "4",
            "8",
            2},
        CasoCosti{
            "IniziePesaENonVale",
            {{.quantita = "10", .prezzo = "2", .dt = G(1, 1, 2024), .tipo = "EI", .causale = "EI"},
             {.quantita = "5", .prezzo = "5", .numero = 2}},
            "5",
            "3",
            "25",
            2},
        CasoCosti{
            "NoCostiScarichiEAltriAnni",
            {{.quantita = "2", .prezzo = "3", .numero = 4},
             {.quantita = "9", .prezzo = "90", .dt = G(1, 3, 2024), .tipo = "XN", .numero = 5},
             {.cs = "S", .quantita = "9", .prezzo = "90", .dt = G(1, 3, 2024), .tipo = "XS"},
             {.quantita = "9", .prezzo = "90", .dt = G(1, 3, 2023)}},
            "3",
            "3",
            "6",
            4},
        // The number decides a day's order, not the row's place.
        CasoCosti{"UltimoDelGiorno",
                  {{.quantita = "1", .prezzo = "7", .numero = 9},
                   {.quantita = "1", .prezzo = "5", .numero = 2}},
                  "7",
                  "6",
                  "12",
                  9},
        // Values are exact until the mean: 3 at 0.3333 and 3 at 0.3334 are 0.33335.
        CasoCosti{"MediaArrotondataUnaVolta",
                  {{.quantita = "0.0003", .prezzo = "0.3333"},
                   {.quantita = "0.0003", .prezzo = "0.3335", .numero = 2}},
                  "0.3335",
                  "0.3334",
                  "0.0002",
                  2},
        CasoCosti{
            "QuantitaCheSiAnnullano",
            {{.quantita = "2", .prezzo = "3"}, {.quantita = "-2", .prezzo = "4", .numero = 2}},
            "4",
            "0",
            "-2",
            2},
        CasoCosti{
            "MediaNegativa",
            {{.quantita = "1", .prezzo = "3"}, {.quantita = "-2", .prezzo = "4", .numero = 2}},
            "4",
            "5",
            "-5",
            2}),
    [](const auto& caso) { return std::string(caso.param.nome); });

TEST_F(EsistenzaCostiTest, CostoDaDistinta) {
  for (const char* cod : {"K1", "K2", "K3"}) Metti(Tessarc(), "CodiciRiga", "Cod", cod);
  Tessarc().Esegui("update CodiciRiga set CostoDigitato=10 where Cod='K2'");
  Riga({.prodotto = "K1", .quantita = "1", .prezzo = "2"});
  Riga({.prodotto = "K1", .quantita = "1", .prezzo = "4", .numero = 2});
  for (const auto& [posi, cod, quantita] :
       {std::tuple{1, "K1", "0.3333"}, {2, "K2", "1"}, {3, "K3", "5"}, {4, "K1", "1"}}) {
    Metti(Tessarc(), "Db_r", "Cod", "P1", "Posi", posi, "CodiceRiga", cod, "Quantita", I(quantita));
  }
  EXPECT_EQ(warehouse::CostoDaDistinta(ambiente, "P1", false), I("15.3332"));
  EXPECT_EQ(warehouse::CostoDaDistinta(ambiente, "P1", true), I("13.9999"));
  EXPECT_EQ(warehouse::CostoDaDistinta(ambiente, "K1", true), I("0"));
}

}  // namespace
}  // namespace fenalto::prova
