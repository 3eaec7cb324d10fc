#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <functional>

#include "duedates/codes/Rate.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::duedates {
namespace {

using prova::G;
using prova::I;

RataPagamento Rata(const char* percento, int mesi = 0) {
  RataPagamento rata;
  rata.percImporto = I(percento);
  rata.dopoMesi = mesi;
  rata.dataFattura = true;
  return rata;
}

CodicePagamento Nuovo(const std::vector<const char*>& percentuali) {
  CodicePagamento codice;
  codice.nuovaCodifica = codice.aggiornaScad = true;
  for (std::size_t i = 0; i < percentuali.size(); ++i)
    codice.rate.push_back(Rata(percentuali[i], static_cast<int>(i) + 1));
  return codice;
}

CodicePagamento Vecchio(int numero, int prima, int giorno, int mese = 0) {
  CodicePagamento codice;
  codice.aggiornaScad = true;
  codice.numeroSc = numero;
  codice.primaSc = prima;
  codice.giornoSc = giorno;
  codice.mese = mese;
  return codice;
}

std::string Date(const RateCalcolate& rate, std::size_t quante) {
  std::string testo;
  for (std::size_t i = 0; i < quante; ++i) testo += (i == 0 ? "" : " ") + rate.date[i].Iso();
  return testo;
}

std::string Importi(const RateCalcolate& rate, std::size_t quanti) {
  std::string testo;
  for (std::size_t i = 0; i < quanti; ++i) testo += (i == 0 ? "" : " ") + rate.importi[i].Testo();
  return testo;
}

TEST(Rate, LastDayOfMonthKnowsOnlyTheListedLeapYears) {
  struct Caso {
    int giorno, mese, anno, atteso;
  };
  for (const Caso& c : {Caso{31, 4, 2024, 30},
                        {31, 6, 2024, 30},
                        {31, 9, 2023, 30},
                        {31, 11, 2023, 30},
                        {31, 1, 2024, 31},
                        {31, 12, 2024, 31},
                        {31, 2, 2008, 29},
                        {31, 2, 2012, 29},
                        {31, 2, 2016, 29},
                        {31, 2, 2020, 29},
                        {31, 2, 2000, 28},
                        {31, 2, 2004, 28},
                        {31, 2, 2024, 28},
                        {31, 2, 2028, 28},
                        {15, 2, 2024, 15}})
    EXPECT_EQ(GiorniMese(c.giorno, c.mese, c.anno), c.atteso) << c.mese << "/" << c.anno;
}

TEST(Rate, DateOfARate) {
  struct Caso {
    const char* nome;
    std::function<void(RataPagamento&)> rata;
    Data fattura, attesa;
  };
  const Caso casi[] = {
      {"as it stands", [](auto& r) { r.dataFattura = true; }, G(29, 2, 2024), G(29, 2, 2024)},
      {"neither flag", [](auto& r) { r.dopoMesi = 1; }, G(31, 1, 2024), G(29, 2, 2024)},
      {"months, then days", [](auto& r) { r.dopoMesi = 1, r.dopoGiorni = 2; }, G(31, 1, 2023),
       G(2, 3, 2023)},
      {"end of month", [](auto& r) { r.dopoMesi = 1, r.fineMese = true; }, G(10, 3, 2024),
       G(30, 4, 2024)},
      {"February 2024 ends on the 28th", [](auto& r) { r.dopoMesi = 1, r.fineMese = true; },
       G(31, 1, 2024), G(28, 2, 2024)},
      {"February 2020 on the 29th", [](auto& r) { r.dopoMesi = 1, r.fineMese = true; },
       G(31, 1, 2020), G(29, 2, 2020)},
      {"end of month before the others",
       [](auto& r) { r.fineMese = r.dataFattura = r.giornoFisso = true, r.ggFisso = 5; },
       G(10, 3, 2024), G(31, 3, 2024)},
      {"invoice date before the fixed day",
       [](auto& r) { r.dataFattura = r.giornoFisso = true, r.ggFisso = 5; }, G(10, 3, 2024),
       G(10, 3, 2024)},
      {"fixed day of the next month",
       [](auto& r) { r.dopoMesi = 1, r.giornoFisso = true, r.ggFisso = 10; }, G(20, 11, 2024),
       G(10, 1, 2025)},
      {"a fixed day that the month lacks runs over",
       [](auto& r) { r.giornoFisso = true, r.ggFisso = 31; }, G(31, 1, 2023), G(3, 3, 2023)},
      {"months back", [](auto& r) { r.dopoMesi = -1; }, G(31, 3, 2023), G(28, 2, 2023)},
  };
  for (const Caso& c : casi) {
    RataPagamento rata;
    c.rata(rata);
    EXPECT_EQ(DataRata(rata, c.fattura, {}).Iso(), c.attesa.Iso()) << c.nome;
  }
}

TEST(Rate, WindowsMoveADateToTheNextMonth) {
  const SpostaData agosto{10, 8, 1, 8, 31};
  struct Caso {
    const char* nome;
    SpostaData prima, seconda;
    Data data, attesa;
    int giorno;  ///< told, 0 for none
  };
  const Caso casi[] = {
      Caso("first day", agosto, {}, G(1, 8, 2024), G(10, 9, 2024), 10),
      Caso("last day", agosto, {}, G(31, 8, 2024), G(10, 9, 2024), 10),
      Caso("before", agosto, {}, G(31, 7, 2024), G(31, 7, 2024), 0),
      Caso("after", agosto, {}, G(1, 9, 2024), G(1, 9, 2024), 0),
      Caso("over the year", {15, 12, 20, 12, 31}, {}, G(25, 12, 2024), G(15, 1, 2025), 15),
      Caso("a window across the year holds nothing", {15, 12, 20, 1, 10}, {}, G(25, 12, 2024),
           G(25, 12, 2024), 0),
      Caso("the second alone", {}, agosto, G(5, 8, 2024), G(10, 9, 2024), 10),
      Caso("the second after the first", agosto, {5, 9, 1, 9, 15}, G(5, 8, 2024), G(5, 10, 2024),
           5),
      Caso("the second isn't asked again for the first", {5, 9, 1, 9, 15}, agosto, G(5, 8, 2024),
           G(10, 9, 2024), 10),
      Caso("a day that the next month lacks", {31, 8, 1, 8, 31}, {}, G(5, 8, 2024), G(31, 10, 2024),
           31),
      Caso("a day that no month has", {32, 8, 1, 8, 31}, {}, G(5, 8, 2024), G(5, 8, 2024), 0),
  };
  for (const Caso& c : casi) {
    CodicePagamento codice = Nuovo({"100"});
    codice.rate[0].dopoMesi = 0;
    codice.sposta = {c.prima, c.seconda};
    std::optional<int> spostata;
    EXPECT_EQ(DataRata(codice.rate[0], c.data, codice, &spostata).Iso(), c.attesa.Iso()) << c.nome;
    EXPECT_EQ(spostata.value_or(0), c.giorno) << c.nome;
    const RateCalcolate rate = CalcolaRate(codice, c.data, I("10"), true, c.data);
    EXPECT_EQ(rate.avvisi.empty(), c.giorno == 0) << c.nome;
    if (c.giorno != 0 && !rate.avvisi.empty()) {
      EXPECT_EQ(rate.avvisi.back(),
                "scadenze spostate al " + std::to_string(c.giorno) + " del mese succ.")
          << c.nome;
    }
  }
}

TEST(Rate, AmountsOfTheNewForm) {
  struct Caso {
    std::vector<const char*> percentuali;
    const char *totale, *attesi;
    bool avviso;
  };
  const Caso casi[] = {
      {{"100"}, "1234.56", "1234.56", false},
      {{"100"}, "0.1234", "0.1234", false},
      {{"33.3333", "33.3333", "33.3333"}, "100", "33.33 33.33 33.34", false},
      {{"33.3333", "33.3333", "33.3333"}, "-100", "-33.33 -33.33 -33.34", false},
      {{"50", "50"}, "0.01", "0 0.01", false},
      {{"50", "50"}, "-0.01", "0 -0.01", false},
      // 33.32996667 is a cut short of 33.33, even held at four decimals.
      {{"33.3333", "33.3333", "33.3333"}, "99.99", "33.32 33.32 33.35", false},
      {{"19.9999", "80.0001"}, "99.95", "19.98 79.97", false},
      {{"50", "40"}, "100", "50 50", true},
      {{"60", "60"}, "100", "60 40", true},
      {{"50", "40"}, "5", "2.5 2.5", false},
  };
  for (const Caso& c : casi) {
    const RateCalcolate rate =
        CalcolaRate(Nuovo(c.percentuali), G(1, 3, 2024), I(c.totale), true, G(15, 3, 2024));
    EXPECT_EQ(Importi(rate, c.percentuali.size()), c.attesi) << c.totale;
    EXPECT_EQ(rate.avvisi.empty(), !c.avviso) << c.totale;
    if (c.avviso) {
      EXPECT_EQ(rate.avvisi.at(0),
                "l'importo delle scadenze calcolato in base alle rate impostate sul codice "
                "pagamento non corrisponde al totale, la differenza verrà inserita sull'ultima "
                "rata");
    }
  }
}

TEST(Rate, TheOldForm) {
  struct Caso {
    CodicePagamento codice;
    const char* totale;
    bool euro;
    Data fattura;
    const char *importi, *date;
  };
  const Caso casi[] = {
      {Vecchio(1, 0, 0), "100", true, G(15, 3, 2024), "100", "2024-03-15"},
      // The base stands a month before and was cut to its last day.
      {Vecchio(1, 0, 0), "100", true, G(31, 3, 2024), "100", "2024-03-29"},
      {Vecchio(3, 1, 0), "100", true, G(15, 3, 2024), "33.33 33.33 33.34",
       "2024-04-15 2024-05-15 2024-06-15"},
      {Vecchio(3, 1, 0), "-100", true, G(15, 3, 2024), "-33.34 -33.34 -33.32",
       "2024-04-15 2024-05-15 2024-06-15"},
      {Vecchio(3, 1, 31), "100001", false, G(15, 1, 2024), "33333 33333 33335",
       "2024-02-28 2024-03-31 2024-04-30"},
      {Vecchio(2, 1, 10), "1.13", true, G(20, 3, 2024), "0.56 0.57", "2024-05-10 2024-06-10"},
      {Vecchio(2, 0, 30), "2", true, G(20, 1, 2023), "1 1", "2023-02-28 2023-03-30"},
      // August is skipped; the next rate isn't pushed on by it.
      {Vecchio(3, 1, 0, 8), "3", true, G(31, 5, 2024), "1 1 1", "2024-06-30 2024-07-31 2024-09-30"},
      {Vecchio(2, 2, 0), "2", true, G(31, 12, 2023), "1 1", "2024-02-29 2024-03-31"},
  };
  for (const Caso& c : casi) {
    const RateCalcolate rate = CalcolaRate(c.codice, c.fattura, I(c.totale), c.euro, G(1, 1, 2024));
    const auto quante = static_cast<std::size_t>(c.codice.numeroSc);
    EXPECT_EQ(Importi(rate, quante), c.importi);
    EXPECT_EQ(Date(rate, quante), c.date);
    EXPECT_EQ(rate.forma, "vecchia");
  }
}

TEST(Rate, WhatIsNotFilledIsTodayAndZero) {
  const Data oggi = G(15, 3, 2024);
  CodicePagamento spento = Nuovo({"100"});
  spento.aggiornaScad = false;
  for (const CodicePagamento& codice : {spento, Nuovo({}), Vecchio(0, 1, 0)}) {
    const RateCalcolate rate = CalcolaRate(codice, G(1, 1, 2024), I("10"), true, oggi);
    EXPECT_EQ(rate.forma, "");
    for (std::size_t i = 0; i < kRateMassime; ++i) {
      EXPECT_EQ(rate.date[i], oggi);
      EXPECT_TRUE(rate.importi[i].Zero());
    }
  }
  CodicePagamento due = Nuovo({"50", "50"});
  due.rate[1].tipo = "03";
  const RateCalcolate rate = CalcolaRate(due, G(1, 1, 2024), I("10"), true, oggi);
  EXPECT_EQ(rate.tipi[0], "05");
  EXPECT_EQ(rate.tipi[1], "03");
  EXPECT_EQ(rate.date[2], oggi);
}

TEST(Rate, RatesAboveTheTenthGoToTheTenth) {
  const RateCalcolate rate = CalcolaRate(Nuovo(std::vector<const char*>(12, "8")), G(1, 1, 2024),
                                         I("100"), true, G(1, 1, 2024));
  EXPECT_EQ(Importi(rate, 10), "8 8 8 8 8 8 8 8 8 28");
  ASSERT_FALSE(rate.avvisi.empty());
  EXPECT_NE(rate.avvisi[0].find("12 rate"), std::string::npos);
}

rc::Gen<CodicePagamento> UnCodice() {
  return rc::gen::exec([] {
    CodicePagamento codice;
    codice.aggiornaScad = true;
    codice.nuovaCodifica = *rc::gen::arbitrary<bool>();
    codice.numeroSc = *rc::gen::inRange(1, 13);
    codice.primaSc = *rc::gen::inRange(0, 13);
    codice.giornoSc = *rc::gen::inRange(0, 32);
    codice.mese = *rc::gen::inRange(0, 13);
    const auto finestra = [] {
      return SpostaData{*rc::gen::inRange(0, 32), *rc::gen::inRange(1, 13),
                        *rc::gen::inRange(1, 32), *rc::gen::inRange(1, 13),
                        *rc::gen::inRange(1, 32)};
    };
    codice.sposta = {finestra(), finestra()};
    const int quante = *rc::gen::inRange(1, 13);
    for (int i = 0; i < quante; ++i) {
      RataPagamento rata;
      rata.percImporto = Importo::DaDecimillesimi(*rc::gen::inRange(-1'000'000, 1'000'001));
      rata.dopoMesi = *rc::gen::inRange(0, 25);
      rata.dopoGiorni = *rc::gen::inRange(0, 400);
      rata.fineMese = *rc::gen::arbitrary<bool>();
      rata.giornoFisso = *rc::gen::arbitrary<bool>();
      rata.ggFisso = *rc::gen::inRange(1, 32);
      codice.rate.push_back(rata);
    }
    return codice;
  });
}

RC_GTEST_PROP(RateProp, AddUpToTheTotal, (bool euro)) {
  const CodicePagamento codice = *UnCodice();
  // Cents in euro, whole lire.
  const Importo totale = Importo::DaDecimillesimi(
      *rc::gen::inRange<std::int64_t>(-2'000'000'000, 2'000'000'000) * (euro ? 100 : 10'000));
  const Data data = Data::DaGiorni(*rc::gen::inRange(36'000, 50'000));
  const RateCalcolate rate = CalcolaRate(codice, data, totale, euro, data);
  Importo somma;
  for (const Importo importo : rate.importi) somma += importo;
  RC_ASSERT(somma == totale);
  for (std::size_t i = 0; i < kRateMassime; ++i) {
    // Only the fixed list of leap years takes a date back, and by one day at most.
    RC_ASSERT(rate.date[i] >= data.PiuGiorni(codice.nuovaCodifica ? -1 : -31));
    RC_ASSERT(rate.importi[i].Decimillesimi() % (euro || codice.nuovaCodifica ? 100 : 10'000) == 0);
  }
}

/// A credit note takes back what its invoice gave, rate by rate.
RC_GTEST_PROP(RateProp, NewFormIsSymmetric, ()) {
  CodicePagamento codice = *UnCodice();
  codice.nuovaCodifica = true;
  const Importo totale =
      Importo::DaDecimillesimi(*rc::gen::inRange<std::int64_t>(0, 2'000'000'000'000));
  const Data data = G(15, 3, 2024);
  const RateCalcolate fattura = CalcolaRate(codice, data, totale, true, data);
  const RateCalcolate nota = CalcolaRate(codice, data, -totale, true, data);
  for (std::size_t i = 0; i < kRateMassime; ++i) RC_ASSERT(fattura.importi[i] == -nota.importi[i]);
}

}  // namespace
}  // namespace fenalto::duedates
