// The settlement against sheets worked out by hand.
#include <gtest/gtest.h>

#include "ledger/DittaDiProva.h"
#include "vat/LiquidazioneDiProva.h"
#include "vat/settlement/MinimoVersamento.h"
namespace fenalto::prova {
namespace {

using ::testing::ElementsAreArray;

struct Foglio {
  std::string nome, periodo;
  std::vector<vat::TotaleRegistro> registri;
  vat::DatiLiquidazione dati;
  std::vector<std::string> righe;
  int anno = 2024;
};

vat::DatiLiquidazione Percentuali(const char* proRata, const char* interessi) {
  vat::DatiLiquidazione dati;
  dati.proRata = I(proRata);
  dati.interessi = I(interessi);
  return dati;
}

vat::DatiLiquidazione DatiPieni() {
  vat::DatiLiquidazione dati = Percentuali("12.5", "0");
  dati.creditoPrec = I("50");
  dati.meno = {vat::VoceManuale{"acconto versato", I("20")}, vat::VoceManuale{"vuota", I("0")},
               vat::VoceManuale{"rettifica", I("-5")}};
  dati.piu = {vat::VoceManuale{"importo non versato periodo precedente", I("10.5")},
              vat::VoceManuale{"altro", I("1")}};
  return dati;
}

TEST(Liquidazione, Fogli) {
  const auto vendite = [](const char* iva) { return Registro("01", 1, I(iva)); };
  const std::string saldo = "IVA a debito del periodo ";
  const std::vector<std::string> minimo = {"(importo non superiore a € 100.00)",
                                           "(da aggiungere al prossimo versamento)"};
  const std::vector<std::string> note = {
      "(*corrispettivi ventilati: la somma importi iva mese/trim può)",
      "( essere diversa dalla ventilazione calcolata sull'anno: )",
      "( si deve quindi compensare nell'ultima liquidazione iva)"};
  const std::vector<Foglio> fogli = {
      Foglio(
          "tutte le righe", "03",
          {Registro("01", 1, I("1000"), I("100")), Registro("03", -1, I("400.04"), I("30")),
           Registro("04", 1, I("22")), Registro("05", -1, I("22")), Registro("06", 0, I("77")),
           Registro("08", 1, I("15"), I("15")), Registro("08A", -1, I("4"))},
          DatiPieni(),
          {"Registro 01 Prova 1000", "storno per differimento esigiblità iva VENDITE -100",
           "Registro 03 Prova -400.04", "storno per differimento esigiblità iva ACQUISTI 30",
           "Pro-Rata 12,5% 46.26", "Registro 04 Prova 22", "Registro 05 Prova -22",
           "Pro-Rata 12,5% 2.75", "Registro 08 Prova 15", "Registro 08A Prova -4",
           "Pro-Rata 12,5% 0.5", saldo + "590.47", "Credito precedente 50 -",
           "acconto versato 20 -", "rettifica -5 -",
           "importo non versato periodo precedente 10.5 +", "altro 1 +", "IVA DA VERSARE 536.97"}),
      Foglio("25,81", "01", {vendite("25.81")}, {},
             {"Registro 01 Prova 25.81", saldo + "25.81", "IVA DA VERSARE 25.81",
              "(importo inferiore a € 25.82)", minimo[1]},
             2023),
      Foglio("25,82", "01", {vendite("25.82")}, {},
             {"Registro 01 Prova 25.82", saldo + "25.82", "IVA DA VERSARE 25.82"}, 2023),
      Foglio("gli interessi passano il minimo", "T1", {vendite("25.6")}, Percentuali("0", "1"),
             {"Registro 01 Prova 25.6", saldo + "25.6", "IVA A DEBITO 25.6", "INTERESSI 1% 0.26 +",
              "IVA DA VERSARE 25.86"},
             2023),
      Foglio("trimestre", "T2", {vendite("1000.5")}, Percentuali("0", "1"),
             {"Registro 01 Prova 1000.5", saldo + "1000.5", "IVA A DEBITO 1000.5",
              "INTERESSI 1% 10.01 +", "IVA DA VERSARE 1010.51"}),
      Foglio("a credito niente interessi", "T3", {Registro("03", -1, I("80"))},
             Percentuali("0", "1"),
             {"Registro 03 Prova -80", "IVA a credito del periodo 80", "IVA A CREDITO 80"}),
      Foglio("niente", "05", {}, Percentuali("0", "1"),
             {"IVA a credito del periodo 0", "IVA A CREDITO 0"}),
      Foglio("note di credito oltre gli acquisti", "05", {Registro("03", -1, I("-10.01"))},
             Percentuali("50", "0"),
             {"Registro 03 Prova 10.01", "Pro-Rata 50% -5.01", saldo + "5", "IVA DA VERSARE 5",
              minimo[0], minimo[1]}),
      Foglio("ventilazione di novembre", "11", {Registro("07", 1, I("100"))}, {},
             {"Registro 07 Prova 100", saldo + "100", "IVA DA VERSARE 100"}),
      Foglio("ventilazione di dicembre", "12", {Registro("07", 1, I("100"))}, {},
             {"Registro 07 Prova* 100", saldo + "100", "IVA DA VERSARE 100", note[0], note[1],
              note[2]}),
      Foglio("ventilazione del quarto trimestre, a credito", "T4", {Registro("07", 1, I("-1"))}, {},
             {"Registro 07 Prova* -1", "IVA a credito del periodo 1", "IVA A CREDITO 1", note[0],
              note[1], note[2]}),
      Foglio("riepilogo annuale", "Z", {vendite("10"), Registro("07", 1, I("1"))}, DatiPieni(),
             {"Registro 01 Prova 10", "Registro 07 Prova 1", saldo + "11"}),
  };
  for (const Foglio& foglio : fogli) {
    SCOPED_TRACE(foglio.nome);
    EXPECT_THAT(InRighe(vat::CalcolaLiquidazione(Periodo(foglio.periodo, foglio.anno),
                                                 foglio.registri, foglio.dati)),
                ElementsAreArray(foglio.righe));
  }
}

TEST(Liquidazione, MinimoVersamento) {
  struct Caso {
    int anno;
    const char *periodo, *importo;
    bool sotto;
  };
  for (const Caso& caso : {Caso{2023, "01", "25.81", true},
                           {2023, "12", "25.81", true},
                           {2023, "T4", "25.81", true},
                           {2023, "11", "25.82", false},
                           {2024, "01", "100", true},
                           {2024, "01", "100.01", false},
                           {2024, "10", "100", true},
                           {2024, "11", "0.01", false},
                           {2024, "12", "50", false},
                           {2025, "T2", "100", true},
                           {2024, "T2", "100.01", false},
                           {2024, "T3", "1", false},
                           {2024, "T4", "1", false},
                           {2025, "03", "0", false},
                           {2025, "03", "-5", false}}) {
    EXPECT_EQ(vat::SottoMinimo(Periodo(caso.periodo, caso.anno), I(caso.importo)), caso.sotto)
        << caso.anno << " " << caso.periodo << " " << caso.importo;
  }
  // A year of lire has its own least payment.
  vat::PeriodoIva lire = Periodo("03", 2000);
  lire.euro = false;
  EXPECT_TRUE(vat::SottoMinimo(lire, I("49999")));
  EXPECT_FALSE(vat::SottoMinimo(lire, I("50000")));
  EXPECT_THAT(InRighe(vat::CalcolaLiquidazione(lire, {Registro("01", 1, I("49999"))}, {})),
              ::testing::Contains("(importo inferiore a lire 50.000)"));
  // The interest counts: 99.01 and 0.99.
  const auto l = vat::CalcolaLiquidazione(Periodo("T1"), {Registro("01", 1, I("99.01"))},
                                          Percentuali("0", "1"));
  EXPECT_TRUE(l.sottoMinimo);
  EXPECT_EQ(l.daVersare, I("100"));
}

TEST(Liquidazione, PercentualiRifiutate) {
  for (const auto& [proRata, interessi] :
       {std::pair("101", "0"), {"-1", "0"}, {"0", "-0.5"}, {"0", "101"}}) {
    EXPECT_NE(vat::ErroreDatiLiquidazione(Percentuali(proRata, interessi)), "")
        << proRata << interessi;
  }
  EXPECT_EQ(vat::ErroreDatiLiquidazione(Percentuali("100", "1")), "");
  EXPECT_EQ(vat::ErroreDatiLiquidazione(Percentuali("0", "0")), "");
}

}  // namespace
}  // namespace fenalto::prova
