#include <gtest/gtest.h>

#include <fstream>

#include "runner/Grammatica.h"
#include "runner/Tasti.h"

namespace fenalto::copione {
namespace {

using Testi = std::vector<std::string>;

Testi Nudi(const std::vector<Parola>& parole) {
  Testi testi;
  for (const auto& parola : parole) testi.push_back(parola.testo);
  return testi;
}

TEST(Grammatica, Parole) {
  const struct {
    std::string riga;
    Testi parole;
  } casi[] = {
      {"", {}},
      {" \t ", {}},
      {"  # clic Nuovo", {}},
      {"clic Nuovo", {"clic", "Nuovo"}},
      {"\tclic \t Nuovo  ", {"clic", "Nuovo"}},
      {"scrivi Nota #1 = #", {"scrivi", "Nota", "#1", "=", "#"}},
      {R"(scrivi Nota "due parole")", {"scrivi", "Nota", "due parole"}},
      {R"(scrivi Nota "")", {"scrivi", "Nota", ""}},
      {R"(m "a \"b\" c\\d\ne\|f")", {"m", "a \"b\" c\\d\ne|f"}},
      {R"(m "C:\temp\x \t")", {"m", R"(C:\temp\x \t)"}},
      {R"(m a"b\n "#")", {"m", R"(a"b\n)", "#"}},
      {R"(m "\\" x)", {"m", "\\", "x"}},
  };
  for (const auto& caso : casi) {
    const auto parole = LeggiParole(caso.riga);
    ASSERT_TRUE(parole) << caso.riga;
    EXPECT_EQ(Nudi(parole.Valore()), caso.parole) << caso.riga;
  }
}

TEST(Grammatica, ParoleIlleggibili) {
  for (const auto* riga : {R"(m "aperta)", R"(m "finta\")", R"(m "a"b)", R"(m "a""b")"}) {
    EXPECT_FALSE(LeggiParole(riga)) << riga;
  }
}

TEST(Grammatica, ValoriDiUnaRiga) {
  const struct {
    std::string parola;
    Testi valori;
  } casi[] = {
      {"1|100.010|700.010", {"1", "100.010", "700.010"}},
      {R"("")", {""}},
      {R"("|")", {"", ""}},
      {R"("a b||c")", {"a b", "", "c"}},
      {R"("a\|b|c")", {"a|b", "c"}},
      {R"("a\\|c")", {"a\\", "c"}},
      {R"(a\|b)", {"a\\", "b"}},
  };
  for (const auto& caso : casi) {
    const auto parole = LeggiParole("sql " + caso.parola);
    ASSERT_TRUE(parole) << caso.parola;
    ASSERT_EQ(parole.Valore().size(), 2U) << caso.parola;
    EXPECT_EQ(parole.Valore()[1].Valori(), caso.valori) << caso.parola;
  }
}

TEST(Grammatica, RigheELuoghi) {
  const auto letto =
      LeggiTesto("\xEF\xBB\xBF# primo\r\n\r\nclic Nuovo\r\n  clic  Conferma", "a.cop");
  ASSERT_TRUE(letto) << letto.Errore().testo;
  ASSERT_EQ(letto.Valore().size(), 2U);
  EXPECT_EQ(letto.Valore()[0].Luogo(), "a.cop:3");
  EXPECT_EQ(letto.Valore()[0].Testo(0), "Nuovo");
  EXPECT_EQ(letto.Valore()[1].Luogo(), "a.cop:4");
}

// Each names the line and the command, and the reason holds the word that is wrong.
TEST(Grammatica, ComandiIlleggibili) {
  const struct {
    const char *riga, *comando, *motivo;
  } casi[] = {
      {"premi Nuovo", "premi", "unknown"},
      {"Clic Nuovo", "Clic", "unknown"},
      {"clic", "clic", "takes 1 words, not 0"},
      {"clic Nuova riga", "clic", "takes 1 words, not 2"},
      {"scrivi Nota due parole", "scrivi", "takes 2 words"},
      {"apri A 1 2", "apri", "takes 1 to 2 words"},
      {"apri A uno", "apri", "uno"},
      {"oggi 31/02/2024", "oggi", "31/02/2024"},
      {"oggi 15-03-2024", "oggi", "15-03-2024"},
      {"ditta Prova 2024", "ditta", "words"},
      {"ditta Prova nel 2024", "ditta", "anno"},
      {"tasto Rt1 Return", "tasto", "Return"},
      {"tasto Rt1 F13", "tasto", "F13"},
      {"tasto Rt1 Ctrl+", "tasto", "Ctrl+"},
      {"riga G 0", "riga", "number from 1"},
      {"righe G -1", "righe", "-1"},
      {"righe G 1x", "righe", "1x"},
      {"rispondi forse", "rispondi", "forse"},
      {"rispondi testo", "rispondi", "words"},
      {"stampa carta x", "stampa", "carta"},
      {"stampa pdf", "stampa", "words"},
      {"sql tessarc \"SELECT 1\"", "sql", "lone ="},
      {"sql tessarc \"SELECT 1\" \"=\" 1", "sql", "lone ="},
      {"clic \"Nuovo", "clic", "not closed"},
      {"clic \xFF", "", "UTF-8"},
  };
  for (const auto& caso : casi) {
    const auto letto = LeggiTesto(std::string("\n") + caso.riga + "\nchiudi\n", "a.cop");
    ASSERT_FALSE(letto) << caso.riga;
    const auto& testo = letto.Errore().testo;
    const std::string inizio = std::string("a.cop:2: ") + caso.comando;
    EXPECT_TRUE(testo.starts_with(inizio)) << testo;
    EXPECT_NE(testo.find(caso.motivo), std::string::npos) << testo;
  }
}

class Inclusioni : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string modello = (std::filesystem::temp_directory_path() / "grammatica-XXXXXX").string();
    ASSERT_NE(mkdtemp(modello.data()), nullptr);
    cartella_ = modello;
    std::filesystem::create_directories(cartella_ / "sotto");
    std::filesystem::create_directories(cartella_ / "uscita");
  }
  void TearDown() override { std::filesystem::remove_all(cartella_); }
  void Scrivi(const std::string& nome, const std::string& testo) {
    std::ofstream(cartella_ / nome) << testo;
  }
  std::filesystem::path cartella_;
};

TEST_F(Inclusioni, StannoAlLoroPosto) {
  Scrivi("a.cop", "clic A\nincludi sotto/b.cop\nclic Z\n");
  Scrivi("sotto/b.cop", "includi c.cop\nincludi d.cop\nclic B\n");
  Scrivi("sotto/c.cop", "clic C\n");
  Scrivi("uscita/d.cop", "clic D\n");
  const auto letto = LeggiFile(cartella_ / "a.cop", cartella_ / "uscita");
  ASSERT_TRUE(letto) << letto.Errore().testo;
  Testi pulsanti;
  for (const auto& comando : letto.Valore()) pulsanti.push_back(comando.Testo(0));
  EXPECT_EQ(pulsanti, (Testi{"A", "C", "D", "B", "Z"}));
  EXPECT_EQ(letto.Valore()[3].Luogo(), (cartella_ / "sotto/b.cop").string() + ":3");
}

TEST_F(Inclusioni, Illeggibili) {
  Scrivi("giro.cop", "includi giro.cop\n");
  Scrivi("manca.cop", "chiudi\nincludi niente.cop\n");
  Scrivi("guasto.cop", "includi sotto/guasto.cop\n");
  Scrivi("sotto/guasto.cop", "chiudi\npippo\n");
  const struct {
    const char *file, *motivo;
  } casi[] = {
      {"giro.cop", "too many files"},
      {"manca.cop", "manca.cop:2: includi: there is no file"},
      {"guasto.cop", "sotto/guasto.cop:2: pippo: unknown"},
      {"assente.cop", "assente.cop"},
      {"sotto", "sotto"},
  };
  for (const auto& caso : casi) {
    const auto letto = LeggiFile(cartella_ / caso.file, cartella_);
    ASSERT_FALSE(letto) << caso.file;
    EXPECT_NE(letto.Errore().testo.find(caso.motivo), std::string::npos) << letto.Errore().testo;
  }
}

TEST(Tasti, ConLeAggiunte) {
  const auto tasto = TastoDi("maiusc+CTRL+invio");
  ASSERT_TRUE(tasto);
  EXPECT_EQ(tasto->nome, "Invio");
  EXPECT_TRUE(tasto->ctrl);
  EXPECT_TRUE(tasto->maiusc);
  EXPECT_FALSE(tasto->alt);
  EXPECT_EQ(TastoDi("a")->nome, "a");
  EXPECT_FALSE(TastoDi("è"));
  EXPECT_FALSE(TastoDi(""));
}

}  // namespace
}  // namespace fenalto::copione
