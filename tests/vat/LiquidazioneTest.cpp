// The settlement against a model of its own and against sheets worked out by hand.
#include <gtest/gtest.h>
//
#include <rapidcheck/gtest.h>

#include <cstdlib>
#include <numeric>

#include "ledger/DittaDiProva.h"
#include "vat/LiquidazioneDiProva.h"

namespace fenalto::prova {
namespace {

using ::testing::ElementsAreArray;

// --- Random totals ---------------------------------------------------------------------------

struct RegistroCaso {
  std::string tipo;
  int segno;
  std::int64_t iva;        ///< cents
  std::int64_t differita;  ///< cents
};

/// Cents to the nearest, halves away from zero, of `centesimi` times `percento` over 100.
std::int64_t QuotaModello(std::int64_t centesimi, std::int64_t percento) {
  const std::int64_t prodotto = centesimi * percento;
  const std::int64_t assoluto = (std::llabs(prodotto) + 50) / 100;
  return prodotto < 0 ? -assoluto : assoluto;
}

Importo Cent(std::int64_t centesimi) {
  return Importo::DaDecimillesimi(centesimi * 100);
}

rc::Gen<RegistroCaso> GeneraRegistro() {
  const auto importo = rc::gen::inRange<std::int64_t>(-200'000, 200'000);
  return rc::gen::map(
      rc::gen::tuple(rc::gen::elementOf(std::vector<std::pair<std::string, int>>{{"01", 1},
                                                                                 {"02", 1},
                                                                                 {"03", -1},
                                                                                 {"04", 1},
                                                                                 {"05", -1},
                                                                                 {"06", 0},
                                                                                 {"07", 1},
                                                                                 {"08", 1},
                                                                                 {"08A", -1},
                                                                                 {"09", 1},
                                                                                 {"11", 1}}),
                     importo, rc::gen::oneOf(rc::gen::just<std::int64_t>(0), importo)),
      [](const auto& t) {
        return RegistroCaso{std::get<0>(t).first, std::get<0>(t).second, std::get<1>(t),
                            std::get<2>(t)};
      });
}

RC_GTEST_PROP(LiquidazioneProprieta, ComeIlModello, ()) {
  const auto casi = *rc::gen::container<std::vector<RegistroCaso>>(GeneraRegistro());
  const auto proRata = *rc::gen::element<std::int64_t>(0, 0, 1, 37, 100, 101);
  const auto interessi = *rc::gen::element<std::int64_t>(0, 1, 2);
  const auto periodo = Periodo(*rc::gen::element<std::string>("03", "12", "T2", "T4"));
  const auto voci = *rc::gen::container<std::vector<std::int64_t>>(
      6, rc::gen::oneOf(rc::gen::just<std::int64_t>(0),
                        rc::gen::inRange<std::int64_t>(-5'000, 50'000)));

  std::vector<vat::TotaleRegistro> registri;
  std::int64_t saldo = 0;
  std::size_t righe = 1;
  for (const RegistroCaso& caso : casi) {
    registri.push_back(Registro(caso.tipo, caso.segno, Cent(caso.iva), Cent(caso.differita)));
    if (caso.segno == 0) continue;
    const bool incassate = caso.tipo == "08" || caso.tipo == "08A";
    const std::int64_t differita = incassate ? 0 : caso.differita;
    const std::int64_t indetraibile = caso.tipo == "03" ? QuotaModello(caso.iva, proRata) : 0;
    saldo += caso.segno * (caso.iva - differita - indetraibile);
    righe += 1 + (differita != 0 ? 1U : 0U) + (caso.tipo == "03" && proRata != 0 ? 1U : 0U);
  }
  const std::int64_t risultato = saldo - voci[0] - voci[1] - voci[2] - voci[3] + voci[4] + voci[5];
  const std::int64_t mora = risultato > 0 ? QuotaModello(risultato, interessi) : 0;

  vat::DatiLiquidazione dati;
  dati.proRata = Importo::DaUnita(proRata);
  dati.interessi = Importo::DaUnita(interessi);
  dati.creditoPrec = Cent(voci[0]);
  for (std::size_t i = 0; i < 3; ++i) dati.meno[i] = {"meno", Cent(voci[i + 1])};
  for (std::size_t i = 0; i < 2; ++i) dati.piu[i] = {"più", Cent(voci[i + 4])};
  const vat::Liquidazione l = vat::CalcolaLiquidazione(periodo, registri, dati);

  RC_ASSERT(l.saldoPeriodo == Cent(saldo));
  RC_ASSERT(l.risultato == Cent(risultato));
  RC_ASSERT(l.interessi == Cent(mora));
  RC_ASSERT(l.daVersare == Cent(risultato + mora));
  RC_ASSERT(l.Credito() == Cent(std::max<std::int64_t>(-risultato, 0)));
  RC_ASSERT(l.sottoMinimo == (risultato > 0 && risultato + mora < 2582));
  // The column of the registers adds up to the balance that stands under it.
  RC_ASSERT(l.righe.size() >= righe);
  Importo somma;
  for (std::size_t i = 0; i + 1 < righe; ++i) somma += l.righe[i].importo;
  RC_ASSERT(somma.Assoluto() == l.righe[righe - 1].importo);
  RC_ASSERT(l.righe[righe - 1].descrizione ==
            (saldo > 0 ? "IVA a debito del periodo" : "IVA a credito del periodo"));
}

// --- Sheets by hand ---------------------------------------------------------------------------

struct Foglio {
  std::string nome;
  std::string periodo;
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
      {"tutte le righe",
       "03",
       {Registro("01", 1, I("1000"), I("100")), Registro("03", -1, I("400.04"), I("30")),
        Registro("04", 1, I("22")), Registro("05", -1, I("22")), Registro("06", 0, I("77")),
        Registro("08", 1, I("15"), I("15")), Registro("08A", -1, I("4"))},
       DatiPieni(),
       {"Registro 01 Prova 1000", "storno per differimento esigiblità iva VENDITE -100",
        "Registro 03 Prova -400.04", "storno per differimento esigiblità iva ACQUISTI 30",
        "Pro-Rata 12,5% 50.01", "Registro 04 Prova 22", "Registro 05 Prova -22",
        "Registro 08 Prova 15", "Registro 08A Prova -4", saldo + "590.97",
        "Credito precedente 50 -", "acconto versato 20 -", "rettifica -5 -",
        "importo non versato periodo precedente 10.5 +", "altro 1 +", "IVA DA VERSARE 537.47"}},
      {"25,81",
       "01",
       {vendite("25.81")},
       {},
       {"Registro 01 Prova 25.81", saldo + "25.81", "IVA DA VERSARE 25.81", minimo[0], minimo[1]}},
      {"25,82",
       "01",
       {vendite("25.82")},
       {},
       {"Registro 01 Prova 25.82", saldo + "25.82", "IVA DA VERSARE 25.82"}},
      {"gli interessi passano il minimo",
       "T1",
       {vendite("25.6")},
       Percentuali("0", "1"),
       {"Registro 01 Prova 25.6", saldo + "25.6", "IVA A DEBITO 25.6", "INTERESSI 1% 0.26 +",
        "IVA DA VERSARE 25.86"}},
      {"trimestre",
       "T2",
       {vendite("1000.5")},
       Percentuali("0", "1"),
       {"Registro 01 Prova 1000.5", saldo + "1000.5", "IVA A DEBITO 1000.5", "INTERESSI 1% 10.01 +",
        "IVA DA VERSARE 1010.51"}},
      {"a credito niente interessi",
       "T3",
       {Registro("03", -1, I("80"))},
       Percentuali("0", "1"),
       {"Registro 03 Prova -80", "IVA a credito del periodo 80", "IVA A CREDITO 80"}},
      {"niente",
       "05",
       {},
       Percentuali("0", "1"),
       {"IVA a credito del periodo 0", "IVA A CREDITO 0"}},
      {"note di credito oltre gli acquisti",
       "05",
       {Registro("03", -1, I("-10.01"))},
       Percentuali("50", "0"),
       {"Registro 03 Prova 10.01", "Pro-Rata 50% -5.01", saldo + "5", "IVA DA VERSARE 5", minimo[0],
        minimo[1]}},
      {"ventilazione di novembre",
       "11",
       {Registro("07", 1, I("100"))},
       {},
       {"Registro 07 Prova 100", saldo + "100", "IVA DA VERSARE 100"}},
      {"ventilazione di dicembre",
       "12",
       {Registro("07", 1, I("100"))},
       {},
       {"Registro 07 Prova* 100", saldo + "100", "IVA DA VERSARE 100", note[0], note[1], note[2]}},
      {"ventilazione del quarto trimestre, a credito",
       "T4",
       {Registro("07", 1, I("-1"))},
       {},
       {"Registro 07 Prova* -1", "IVA a credito del periodo 1", "IVA A CREDITO 1", note[0], note[1],
        note[2]}},
      {"riepilogo annuale",
       "Z",
       {vendite("10"), Registro("07", 1, I("1"))},
       DatiPieni(),
       {"Registro 01 Prova 10", "Registro 07 Prova 1", saldo + "11"}},
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
