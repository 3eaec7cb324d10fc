// The settlement against sheets worked out by hand.
#include <gtest/gtest.h>

#include "ledger/DittaDiProva.h"
#include "vat/LiquidazioneDiProva.h"
namespace fenalto::prova {
namespace {

using ::testing::ElementsAreArray;

struct Foglio {
  std::string nome, periodo;
  std::vector<vat::TotaleRegistro> registri;
  vat::DatiLiquidazione dati;
  std::vector<std::string> righe;
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
  const std::vector<std::string> minimo = {"(importo inferiore a € 25.82)",
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
           "Pro-Rata 12,5% 50.01", "Registro 04 Prova 22", "Registro 05 Prova -22",
           "Registro 08 Prova 15", "Registro 08A Prova -4", saldo + "590.97",
           "Credito precedente 50 -", "acconto versato 20 -", "rettifica -5 -",
           "importo non versato periodo precedente 10.5 +", "altro 1 +", "IVA DA VERSARE 537.47"}),
      Foglio("25,81", "01", {vendite("25.81")}, {},
             {"Registro 01 Prova 25.81", saldo + "25.81", "IVA DA VERSARE 25.81", minimo[0],
              minimo[1]}),
      Foglio("25,82", "01", {vendite("25.82")}, {},
             {"Registro 01 Prova 25.82", saldo + "25.82", "IVA DA VERSARE 25.82"}),
      Foglio("gli interessi passano il minimo", "T1", {vendite("25.6")}, Percentuali("0", "1"),
             {"Registro 01 Prova 25.6", saldo + "25.6", "IVA A DEBITO 25.6", "INTERESSI 1% 0.26 +",
              "IVA DA VERSARE 25.86"}),
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
    EXPECT_THAT(
        InRighe(vat::CalcolaLiquidazione(Periodo(foglio.periodo), foglio.registri, foglio.dati)),
        ElementsAreArray(foglio.righe));
  }
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
