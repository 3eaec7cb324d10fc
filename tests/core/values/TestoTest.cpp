#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/values/Generatori.h"
#include "core/values/Testo.h"

namespace fenalto {
namespace {

/// Texts of the letters where comparing goes wrong: both cases, letters that fold to fewer bytes,
/// broken sequences and their beginnings.
rc::Gen<std::string> TestoDifficile() {
  static const std::vector<std::string> kPezzi = {
      "a",           "A",    "z",    "Z",    "[",        "0",        " ",
      "È",           "è",    "ß",    "ẞ",    "ſ",        "s",        "S",
      "\u212A",      "k",    "K",    "Σ",    "ς",        "σ",        "Ж",
      "ж",           "Ā",    "ā",    "😀",   "\xC3",     "\xA8",     "\x88",
      "\xFF",        "\xE2", "\x84", "\xAA", "\xED\xA0", "\xC1\x81", "abcdefghijkl",
      "ABCDEFGHIJKL"};
  return rc::gen::map(rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(kPezzi)),
                      [](const std::vector<std::string>& pezzi) {
                        std::string testo;
                        for (const std::string& pezzo : pezzi) testo += pezzo;
                        return testo;
                      });
}

int Segno(int n) {
  return n < 0 ? -1 : n > 0 ? 1 : 0;
}

TEST(Testo, MaiuscoleEMinuscole) {
  EXPECT_EQ(SenzaMaiuscole("PERCHÉ ÀÖØÞ ÿŸ ĄŹ Ștefan ΑΆΣς ЁЖѠ Ẁ"),
            "perché àöøþ ÿÿ ąź ștefan αάσσ ёжѡ ẁ");
  EXPECT_EQ(SenzaMaiuscole("×÷İı"), "×÷İı");
  EXPECT_EQ(SenzaMaiuscole("A\xFF"
                           "B\xC3"),
            "a\xFF"
            "b\xC3");
  EXPECT_EQ(Maiuscolo("perché àöøþ ÿ ąź ß ς ёж ѡ ő"), "PERCHÉ ÀÖØÞ Ÿ ĄŹ ß Σ ЁЖ Ѡ Ő");
  EXPECT_EQ(Maiuscolo("÷÷"), "÷÷");
  EXPECT_EQ(Minuscolo("È ΣΑΣ ς ſ Ő"), "è σασ ς ſ ő");
}

// The small letter of a capital has that capital, all over the planes that are folded.
TEST(Testo, OgniLetteraTornaIndietro) {
  const auto byte = [](char32_t c) { return static_cast<char>(c); };
  for (char32_t c = 0x80; c < 0x2000; ++c) {
    std::string testo;
    if (c < 0x800)
      testo = {byte(0xC0 | (c >> 6)), byte(0x80 | (c & 0x3F))};
    else
      testo = {byte(0xE0 | (c >> 12)), byte(0x80 | ((c >> 6) & 0x3F)), byte(0x80 | (c & 0x3F))};
    const std::string piegato = SenzaMaiuscole(testo);
    EXPECT_EQ(SenzaMaiuscole(piegato), piegato) << testo;
    EXPECT_TRUE(UgualeTesto(Minuscolo(testo), testo)) << testo;
    // The dotless i shares its capital with i; the capital of the sharp s is only read.
    const bool senzaRitorno = testo == "ı" || testo == "ẞ";
    if (senzaRitorno) continue;
    EXPECT_TRUE(UgualeTesto(Maiuscolo(testo), testo)) << testo << ' ' << Maiuscolo(testo);
    const std::string minuscolo = Minuscolo(testo);
    EXPECT_TRUE(minuscolo == testo || Maiuscolo(minuscolo) == testo) << testo;
  }
}

TEST(Testo, PerRicerca) {
  EXPECT_EQ(PerRicerca("Perché"), "perche");
  EXPECT_EQ(PerRicerca("CITTÀ È Università"), "citta e universita");
  EXPECT_EQ(PerRicerca("Müller Straße Ångström Œuvre"), "muller strasse angstrom oeuvre");
  EXPECT_EQ(PerRicerca("Škoda Łódź Čapek Ștefan"), "skoda lodz capek stefan");
  EXPECT_EQ(PerRicerca("e\u0300"), "e");  // decomposed
  EXPECT_EQ(PerRicerca("Dell\u2019Acqua"), "dell'acqua");
  EXPECT_EQ(PerRicerca("Ά×Ж\xC3"), "α×ж\xC3");
}

TEST(Testo, InRicercaFaComePerRicerca) {
  const std::string lungo = std::string(300, 'x') + "Fine";
  for (const std::string& testo :
       {std::string(), std::string("Rossi & C."), std::string("ROSSI S.p.A. [@`{"),
        std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), std::string("Università"),
        std::string("e\u0300a"), std::string("Stra\u00DFe"), std::string("a\xC3"), lungo}) {
    for (const std::string& cercato :
         {std::string(), std::string("rossi"), std::string("si s"), std::string("a"),
          std::string("e"), std::string("ea"), std::string("ita"), std::string("strass"),
          std::string("fine"), std::string("\xC3"), std::string(257, 'x'), std::string("@`{"),
          PerRicerca(testo), lungo}) {
      const std::string piegato = PerRicerca(testo);
      EXPECT_EQ(InRicerca(testo, cercato), piegato.find(cercato) != std::string::npos)
          << testo << " | " << cercato;
      EXPECT_EQ(IniziaRicerca(testo, cercato), piegato.starts_with(cercato))
          << testo << " | " << cercato;
    }
  }
}

TEST(Testo, Ordine) {
  EXPECT_EQ(ConfrontaTesto("", ""), 0);
  EXPECT_LT(ConfrontaTesto("", "a"), 0);
  EXPECT_EQ(ConfrontaTesto("Rossi", "ROSSI"), 0);
  EXPECT_LT(ConfrontaTesto("rossi", "ROSSIN"), 0);
  EXPECT_GT(ConfrontaTesto("a", "Z["), -2);
  EXPECT_LT(ConfrontaTesto("_", "A"), 0);  // as folded: '_' stands before 'a', not after 'A'
  EXPECT_GT(ConfrontaTesto("abcdefgh1", "ABCDEFGH0"), 0);
  EXPECT_EQ(ConfrontaTesto("Città", "CITTÀ"), 0);
  EXPECT_NE(ConfrontaTesto("Città", "citta"), 0);
  EXPECT_EQ(ConfrontaTesto("\u212A", "K"), 0);  // three bytes against one
  EXPECT_LT(ConfrontaTesto(std::string_view("a\0b", 3), std::string_view("a\0c", 3)), 0);
}

RC_GTEST_PROP(TestoProprieta, ConfrontaComeIPiegati, ()) {
  const std::string a = *TestoDifficile();
  // Half the time the second is the first in capitals, else equal pairs would be rare.
  const std::string b = *rc::gen::arbitrary<bool>() ? *TestoDifficile() : Maiuscolo(a);
  const int atteso = Segno(SenzaMaiuscole(a).compare(SenzaMaiuscole(b)));
  RC_ASSERT(Segno(ConfrontaTesto(a, b)) == atteso);
  RC_ASSERT(UgualeTesto(a, b) == (atteso == 0));
  if (atteso == 0) {
    RC_ASSERT(HashTesto(a) == HashTesto(b));
  }
}

RC_GTEST_PROP(TestoProprieta, MidTagliaSenzaPerdere, ()) {
  const std::string testo = *TestoDifficile();
  const std::size_t lunghezza = LunghezzaTesto(testo);
  const auto n = *rc::gen::inRange<std::size_t>(0, lunghezza + 3);
  RC_ASSERT(Mid(testo, 1, n) + Mid(testo, n + 1, lunghezza) == testo);
  RC_ASSERT(Utf8Valido(PerRicerca(testo)) == Utf8Valido(testo));
}

TEST(Testo, Somiglia) {
  struct Caso {
    const char *testo, *modello;
    bool atteso;
  };
  const Caso casi[] = {
      {"", "", true},
      {"", "*", true},
      {"", "?", false},
      {"a", "", false},
      {"Rossi Mario", "rossi*", true},
      {"Rossi Mario", "*MARIO", true},
      {"Rossi Mario", "*ssi*ri*", true},
      {"Rossi Mario", "*ssi*rix*", false},
      {"aaab", "*ab", true},
      {"001.015", "001.*", true},
      {"001", "001.*", false},
      {"perché", "perch?", true},
      {"PERCHÉ", "perché", true},
      {"perche", "perché", false},
      {"a1", "a#", true},
      {"ab", "a#", false},
      {"M", "[a-m]", true},
      {"n", "[a-m]", false},
      {"n", "[!a-m]", true},
      {"é", "[à-ü]", true},
      {"-", "[a-]", true},
      {"-", "[-a]", true},
      {"!", "[!]", true},
      {"a", "[xyza]", true},
      {"*", "[*]", true},
      {"x", "[*]", false},
      {"3*4", "3[*]4", true},
      {"a[b", "a[[]b", true},
      {"a[b", "a[b", true},
      {"ab", "a[]b", true},
      {"100%", "100%", true},
      {"100x", "100%", false},
      {"a_b", "a?b", true},
      {"xay", "*[a-c]?", true},
  };
  for (const Caso& caso : casi)
    EXPECT_EQ(Somiglia(caso.testo, caso.modello), caso.atteso)
        << '"' << caso.testo << "\" con \"" << caso.modello << '"';
  // A pattern that invites backtracking still ends at once.
  std::string modello;
  for (int i = 0; i < 30; ++i) modello += "*a";
  EXPECT_FALSE(Somiglia(std::string(2'000, 'a') + "c", modello + "b"));
}

// Whatever the text, it looks like itself once its special characters are bracketed.
RC_GTEST_PROP(TestoProprieta, SomigliaASe, ()) {
  const std::string testo =
      *TestoDifficile() + *rc::gen::element<std::string>("*", "?", "#", "[", "");
  std::string modello;
  for (const char c : testo)
    modello += std::string_view("*?#[").find(c) != std::string_view::npos
                   ? '[' + std::string(1, c) + ']'
                   : std::string(1, c);
  RC_ASSERT(Somiglia(testo, modello));
  RC_ASSERT(Somiglia("x" + testo + "y", "*" + modello + "*"));
  RC_ASSERT(!Somiglia("x" + testo, modello) || testo.empty());
}

TEST(Testo, Utf8) {
  for (const char* valido : {"", "a", "è", "€", "😀", "\xEF\xBF\xBF", "\xF4\x8F\xBF\xBF"})
    EXPECT_TRUE(Utf8Valido(valido)) << valido;
  for (const char* rotto :
       {"\x80", "\xC3", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
        "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82", "\xE2\x28\xA1", "a\xFFz"})
    EXPECT_FALSE(Utf8Valido(rotto));
  EXPECT_EQ(LunghezzaTesto("perché 😀"), 8U);
  EXPECT_EQ(LunghezzaTesto("\xE2\x82"), 2U);
}

TEST(Testo, QuelloCheNonSiVede) {
  struct Caso {
    std::string testo;
    const char *mostrato, *difetto;  ///< the code that is told
  };
  for (const Caso& caso : {Caso{"perché\tno\r\n€ 😀 ~", "perché\tno\r\n€ 😀 ~", ""},
                           {"a\x07"
                            "b",
                            "a\u2407b", "U+0007"},
                           {std::string("\0", 1), "\u2400", "U+0000"},
                           {"\x7F", "\u2421", "U+007F"},
                           {"\xC2\x85z", "\uFFFDz", "U+0085"},
                           {"riga\xE2\x80\xA8sotto", "riga\uFFFDsotto", "U+2028"},
                           {"caff\xE8 e", "caff\uFFFD e", "byte E8"},
                           {"\xE2\x82", "\uFFFD\uFFFD", "byte E2"}}) {
    EXPECT_EQ(Visibile(caso.testo), caso.mostrato);
    const std::string difetto = DifettoTesto(caso.testo);
    EXPECT_EQ(difetto.empty(), *caso.difetto == '\0') << caso.mostrato;
    EXPECT_NE(difetto.find(caso.difetto), std::string::npos) << difetto;
  }
}

TEST(Testo, SegniRimasti) {
  EXPECT_EQ(SegnoRimasto("Bar", "Bar\u2407"), "");
  EXPECT_EQ(SegnoRimasto("Bar\x07", "Bar"), "");
  EXPECT_NE(SegnoRimasto("Bar\x07", "x\u2407").find("U+0007"), std::string::npos);
  EXPECT_NE(SegnoRimasto("\x01 \x1B", "x\u241B").find("U+001B"), std::string::npos);
  EXPECT_NE(SegnoRimasto("caff\xE8 e", "caff\uFFFD").find("byte E8"), std::string::npos);
}

TEST(Testo, NumeriScrittiComeTesti) {
  const std::vector<std::string> ordine = {"",
                                           "A1",
                                           "S/88",
                                           "7",
                                           "007b",
                                           "10",
                                           "10/A",
                                           "11",
                                           "2024/9",
                                           "2024/123",
                                           "99999999999999999999"};
  const std::vector<std::string> inOrdine = {"",
                                             "A1",
                                             "S/88",
                                             "007b",
                                             "7",
                                             "10",
                                             "10/A",
                                             "11",
                                             "2024/123",
                                             "2024/9",
                                             "99999999999999999999"};
  std::vector<std::string> ordinati = ordine;
  std::ranges::sort(ordinati,
                    [](const auto& a, const auto& b) { return ConfrontaNumeri(a, b) < 0; });
  EXPECT_EQ(ordinati, inOrdine);
}

TEST(Testo, PezziDiTesto) {
  EXPECT_EQ(Mid("perché no", 5, 2), "hé");
  EXPECT_EQ(Mid("abc", 2, 100), "bc");
  EXPECT_EQ(Mid("abc", 4, 1), "");
  EXPECT_EQ(Mid("abc", 1, 0), "");
  EXPECT_EQ(Rifila(" \t a b\xC2\xA0\r\n"), "a b");
  EXPECT_EQ(Rifila("\xC2\xA0"), "");
  EXPECT_EQ(Rifila("à"), "à");  // ends in the byte A0, which alone is no blank
  EXPECT_EQ(DaLatin1("Perch\xE9 \x80 5 \x93ok\x94"), "Perché € 5 “ok”");
}

}  // namespace
}  // namespace fenalto
