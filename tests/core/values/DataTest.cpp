#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <stdexcept>

#include "core/values/Data.h"
#include "core/values/Generatori.h"

namespace fenalto {
namespace {

Data G(int giorno, int mese, int anno) {
  return Data::DaGma(giorno, mese, anno).value();
}

TEST(Data, GiorniNoti) {
  struct Caso {
    const char* iso;
    std::int32_t giorni;
    int giornoSettimana;
  };
  const Caso casi[] = {
      {"1899-12-31", 1, 7},      {"1899-12-29", -1, 5},       {"1900-01-01", 2, 1},
      {"1900-03-01", 61, 4},     {"1970-01-01", 25'569, 4},   {"2000-02-29", 36'585, 2},
      {"2024-03-15", 45'366, 5}, {"0001-01-01", -693'593, 1}, {"9999-12-31", 2'958'465, 5},
  };
  for (const Caso& caso : casi) {
    const auto data = Data::DaIso(caso.iso);
    ASSERT_TRUE(data) << caso.iso;
    EXPECT_EQ(data->Giorni(), caso.giorni) << caso.iso;
    EXPECT_EQ(data->GiornoSettimana(), caso.giornoSettimana) << caso.iso;
    EXPECT_EQ(data->Iso(), caso.iso);
  }
}

// Every day of the ten thousand years, counted by hand: no day is missing, doubled or misnamed.
TEST(Data, TuttoIlCalendario) {
  Data data = G(1, 1, 1);
  int settimana = 1;
  for (int anno = 1; anno <= 9999; ++anno) {
    for (int mese = 1; mese <= 12; ++mese) {
      static constexpr int kLunghezze[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
      const bool bisestile = anno % 400 == 0 || (anno % 4 == 0 && anno % 100 != 0);
      const int giorni = kLunghezze[mese - 1] + (mese == 2 && bisestile ? 1 : 0);
      for (int giorno = 1; giorno <= giorni; ++giorno) {
        const bool giusta = data.Giorno() == giorno && data.Mese() == mese && data.Anno() == anno &&
                            data.GiornoSettimana() == settimana && G(giorno, mese, anno) == data;
        ASSERT_TRUE(giusta) << giorno << '/' << mese << '/' << anno;
        settimana = settimana % 7 + 1;
        if (anno < 9999 || mese < 12 || giorno < 31) data = data.PiuGiorni(1);
      }
    }
  }
  EXPECT_THROW(static_cast<void>(data.PiuGiorni(1)), std::out_of_range);
}

TEST(Data, GiorniCheNonEsistono) {
  EXPECT_FALSE(Data::DaGma(31, 2, 2024));
  EXPECT_FALSE(Data::DaGma(29, 2, 1900));
  EXPECT_TRUE(Data::DaGma(29, 2, 2000));
  EXPECT_FALSE(Data::DaGma(29, 2, 2100));
  EXPECT_FALSE(Data::DaGma(31, 4, 2024));
  EXPECT_FALSE(Data::DaGma(0, 1, 2024));
  EXPECT_FALSE(Data::DaGma(1, 0, 2024));
  EXPECT_FALSE(Data::DaGma(1, 13, 2024));
  EXPECT_FALSE(Data::DaGma(1, 1, 0));
  EXPECT_FALSE(Data::DaGma(1, 1, 10'000));
  for (const char* iso : {"", "2024-3-15", "2024/03/15", "15-03-2024", "2024-03-15 ", "2024-02-30",
                          "0000-01-01", "2024-03-1a", "+024-03-15", "2024-03--5"})
    EXPECT_FALSE(Data::DaIso(iso)) << iso;
  EXPECT_THROW(static_cast<void>(Data::DaGiorni(-693'594)), std::out_of_range);
  EXPECT_THROW(static_cast<void>(Data::DaGiorni(2'958'466)), std::out_of_range);
  constexpr auto kEstremo = std::numeric_limits<std::int32_t>::max();
  EXPECT_THROW(static_cast<void>(G(1, 1, 2024).PiuGiorni(kEstremo)), std::out_of_range);
  EXPECT_THROW(static_cast<void>(G(1, 1, 2024).PiuMesi(kEstremo)), std::out_of_range);
  EXPECT_THROW(static_cast<void>(G(1, 1, 1).PiuMesi(-1)), std::out_of_range);
  EXPECT_THROW(static_cast<void>(G(1, 12, 9999).PiuMesi(1)), std::out_of_range);
}

TEST(Data, Nulla) {
  const Data nulla;
  EXPECT_TRUE(nulla.Nulla());
  EXPECT_EQ(nulla, G(30, 12, 1899));
  EXPECT_EQ(nulla.Iso(), "");
  EXPECT_EQ(nulla.Testo(), "");
  EXPECT_LT(nulla, G(1, 1, 1900));
}

TEST(Data, Mesi) {
  EXPECT_EQ(G(31, 1, 2024).PiuMesi(1), G(29, 2, 2024));
  EXPECT_EQ(G(31, 1, 2023).PiuMesi(1), G(28, 2, 2023));
  EXPECT_EQ(G(31, 3, 2024).PiuMesi(-1), G(29, 2, 2024));
  EXPECT_EQ(G(15, 11, 2024).PiuMesi(3), G(15, 2, 2025));
  EXPECT_EQ(G(15, 1, 2024).PiuMesi(-13), G(15, 12, 2022));
  EXPECT_EQ(G(29, 2, 2024).PiuMesi(12), G(28, 2, 2025));
  EXPECT_EQ(G(31, 12, 9999).PiuMesi(0), G(31, 12, 9999));
  EXPECT_EQ(G(10, 2, 2100).FineMese(), G(28, 2, 2100));
  EXPECT_EQ(G(31, 12, 9999).FineMese(), G(31, 12, 9999));
  EXPECT_EQ(G(5, 3, 24).Testo(), "05/03/0024");
}

TEST(Data, LeggeCiòCheSiDigita) {
  const Data oggi = G(24, 11, 2026);
  struct Caso {
    const char *digitata, *letta;
  };
  const Caso casi[] = {
      {"15", "2025-11-15"},
      {"5", "2025-11-05"},
      {"1503", "2025-03-15"},
      {"150324", "2024-03-15"},
      {"15032024", "2024-03-15"},
      {"15/3", "2025-03-15"},
      {"15/3/24", "2024-03-15"},
      {"15-03-2024", "2024-03-15"},
      {"15.3.2024", "2024-03-15"},
      {" 1/1/79 ", "2079-01-01"},
      {"1/1/80", "1980-01-01"},
      {"010199", "1999-01-01"},
      {"1/1/00", "2000-01-01"},
      {"29/02/2000", "2000-02-29"},
      {"1/1/0001", "0001-01-01"},
      {"31/12/9999", "9999-12-31"},
      {"", ""},
      {"  ", ""},
  };
  for (const Caso& caso : casi) {
    const auto letta = LeggiData(caso.digitata, 2025, oggi);
    ASSERT_TRUE(letta) << caso.digitata << ": " << letta.Errore().messaggio;
    EXPECT_EQ(letta.Valore().Iso(), caso.letta) << caso.digitata;
  }
}

TEST(Data, RifiutaDicendoPerché) {
  const Data oggi = G(24, 2, 2026);
  struct Caso {
    const char *digitata, *messaggio;
  };
  const Caso casi[] = {
      {"31/02/2024", "31/02: febbraio 2024 ha 29 giorni"},
      {"30", "30/02: febbraio 2025 ha 28 giorni"},
      {"29/2/1900", "29/02: febbraio 1900 ha 28 giorni"},
      {"290200", nullptr},  // 2000 was a leap year
      {"29022100", "29/02: febbraio 2100 ha 28 giorni"},
      {"0", "00/02: febbraio 2025 ha 28 giorni"},
      {"15/13", "mese 13: i mesi vanno da 1 a 12"},
      {"1500", "mese 0: i mesi vanno da 1 a 12"},
      {"1/1/0000", "anno 0: gli anni vanno da 1 a 9999"},
      {"153", "non è una data"},
      {"15032", "non è una data"},
      {"1503202", "non è una data"},
      {"150320244", "non è una data"},
      {"15/", "non è una data"},
      {"/3", "non è una data"},
      {"15//24", "non è una data"},
      {"15/3/24/1", "non è una data"},
      {"15/3-24", "non è una data"},
      {"15/3/4", "non è una data"},
      {"2024-03-15", "non è una data"},
      {"15 3", "non è una data"},
      {"-5", "non è una data"},
      {"oggi", "non è una data"},
      {"99999999999999999999", "non è una data"},
      {"99999999999/1", "non è una data"},
      {"\xC3", "non è una data"},
  };
  for (const Caso& caso : casi) {
    const auto letta = LeggiData(caso.digitata, 2025, oggi);
    EXPECT_EQ(letta.Riuscito(), caso.messaggio == nullptr) << caso.digitata;
    if (!letta && caso.messaggio != nullptr) {
      EXPECT_NE(letta.Errore().messaggio.find(caso.messaggio), std::string::npos)
          << letta.Errore().messaggio;
    }
  }
}

RC_GTEST_PROP(DataProprieta, AndataERitorno, (Data data)) {
  if (data.Nulla()) return;
  RC_ASSERT(Data::DaIso(data.Iso()) == data);
  RC_ASSERT(LeggiData(data.Testo(), 2025, data).Valore() == data);
  RC_ASSERT(data.FineMese().Mese() == data.Mese());
}

RC_GTEST_PROP(DataProprieta, MesiAvantiSonoQuelMese, (Data data)) {
  const int mesi = *rc::gen::inRange(-400, 400);
  const int indice = data.Anno() * 12 + data.Mese() - 1 + mesi;
  RC_PRE(indice >= 12 && indice < 120'000);
  const Data dopo = data.PiuMesi(mesi);
  RC_ASSERT(dopo.Anno() * 12 + dopo.Mese() - 1 == indice);
  RC_ASSERT(dopo.Giorno() == data.Giorno() ||
            (dopo.Giorno() < data.Giorno() && dopo == dopo.FineMese()));
}

}  // namespace
}  // namespace fenalto
