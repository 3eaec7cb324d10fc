#include <gtest/gtest.h>

#include "core/session/Csv.h"

namespace fenalto {
namespace {

TEST(Csv, CampiERighe) {
  const auto letto = LeggiCsv(
      "\xEF\xBB\xBF"
      "Cod;Descrizione\r\n"
      "1;\"due;punti \"\"tra virgolette\"\"\"\r\n"
      "\r\n"
      "2;\"su due\nrighe\"\n"
      "3;");
  ASSERT_TRUE(letto) << letto.Errore().messaggio;
  const TabellaCsv& tabella = letto.Valore();
  EXPECT_EQ(tabella.nomi, (std::vector<std::string>{"Cod", "Descrizione"}));
  ASSERT_EQ(tabella.righe.size(), 3U);
  EXPECT_EQ(tabella.righe[0].campi[1], "due;punti \"tra virgolette\"");
  EXPECT_EQ(tabella.righe[1].campi[1], "su due\nrighe");
  EXPECT_EQ(tabella.righe[1].linea, 4U);
  EXPECT_EQ(tabella.righe[2].campi, (std::vector<std::string>{"3", ""}));
  EXPECT_EQ(tabella.righe[2].linea, 6U);
}

TEST(Csv, ErroriConLaRiga) {
  const std::pair<const char*, const char*> casi[] = {
      {"", "riga 1"},
      {"a;;b\n", "riga 1: manca il nome"},
      {"a;b;A\n", "riga 1: il campo «A» è ripetuto"},
      {"a;b\n1;2\n\n1;2;3\n", "riga 4: 3 campi invece di 2"},
      {"a;b\n1\n", "riga 2: 1 campi invece di 2"},
      {"a;b\n1;x\"y\n", "riga 2: virgolette in mezzo"},
      {"a;b\n1;\"x\"y\n", "riga 2: testo dopo"},
      {"a;b\n1;2\n3;\"mai\nchiuse\n", "riga 3: virgolette non chiuse"},
      {"a;b\n1;perch\xE9\n", "UTF-8"}};
  for (const auto& [testo, parte] : casi) {
    const auto letto = LeggiCsv(testo);
    ASSERT_FALSE(letto) << testo;
    EXPECT_NE(letto.Errore().messaggio.find(parte), std::string::npos) << letto.Errore().messaggio;
  }
}

}  // namespace
}  // namespace fenalto
