#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

#include "core/values/Aritmetica.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Generatori.h"
#include "core/values/ImportoDiProva.h"
#include "core/values/Testo.h"

namespace fenalto {
namespace {

using prova::I;

TEST(FormatoImporto, LeggeCiòCheSiDigita) {
  struct Caso {
    const char *digitato, *letto;
  };
  const Caso casi[] = {
      {"", "0"},
      {"   ", "0"},
      {"0", "0"},
      {"-0", "0"},
      {" 3,5 ", "3.5"},
      {"\t3,5\xC2\xA0", "3.5"},
      {"-3", "-3"},
      {"+3", "3"},
      {"1.234,56", "1234.56"},
      {"-1.234,56", "-1234.56"},
      {"1234,56", "1234.56"},
      {"1234.56", "1234.56"},
      {"1.234", "1234"},
      {"12.345", "12345"},
      {"123.456", "123456"},
      {"1234.567", "1234.567"},
      {"0.123", "0.123"},
      {"000.123", "0.123"},
      {"012.345", "12.345"},
      {"12.34", "12.34"},
      {"1.2345", "1.2345"},
      {"1,234", "1.234"},
      {"1.234,5", "1234.5"},
      {"1.234.567", "1234567"},
      {"1.234.567,8901", "1234567.8901"},
      {",5", "0.5"},
      {".5", "0.5"},
      {".125", "0.125"},
      {"-,5", "-0.5"},
      {"007", "7"},
      {"922337203685477,5807", "922337203685477.5807"},
      {"-922.337.203.685.477,5808", "-922337203685477.5808"},
  };
  for (const Caso& caso : casi) {
    const auto letto = LeggiImporto(caso.digitato);
    ASSERT_TRUE(letto) << caso.digitato << ": " << letto.Errore().messaggio;
    EXPECT_EQ(letto.Valore(), I(caso.letto)) << caso.digitato;
  }
}

TEST(FormatoImporto, RifiutaDicendoPerché) {
  struct Caso {
    const char *digitato, *perche;
  };
  const Caso casi[] = {
      {"-", "mancano le cifre"},
      {",", "mancano le cifre"},
      {"+.", "mancano le cifre"},
      {"5,", "mancano i decimali"},
      {"5.", "mancano i decimali"},
      {"abc", "solo cifre"},
      {"12a", "solo cifre"},
      {"1 234", "solo cifre"},
      {"- 3", "solo cifre"},
      {"3-", "solo cifre"},
      {"--3", "solo cifre"},
      {"1e3", "solo cifre"},
      {"€ 3", "solo cifre"},
      {"\xFF", "solo cifre"},
      {"1,234.5", "dopo i punti"},
      {"1,2,3", "dopo i punti"},
      {"12.34.567", "ogni tre cifre"},
      {"1.23,4", "ogni tre cifre"},
      {"1234.567,8", "ogni tre cifre"},
      {"0.123,4", "ogni tre cifre"},
      {"0.123.456", "ogni tre cifre"},
      {"1..234", "ogni tre cifre"},
      {".234,5", "ogni tre cifre"},
      {"1.234.,5", "ogni tre cifre"},
      {"1,23456", "al più quattro"},
      {"1.00000", "al più quattro"},
      {"922337203685477,5808", "troppo grande"},
      {"99999999999999999999999999999999999999999", "troppo grande"},
  };
  for (const Caso& caso : casi) {
    const auto letto = LeggiImporto(caso.digitato);
    ASSERT_FALSE(letto) << caso.digitato << " letto " << letto.Valore().Testo();
    EXPECT_NE(letto.Errore().messaggio.find(caso.perche), std::string::npos)
        << letto.Errore().messaggio;
    EXPECT_NE(letto.Errore().messaggio.find(caso.digitato), std::string::npos);
  }
}

TEST(FormatoImporto, Scrive) {
  EXPECT_EQ(ScriviImporto(I("0"), 2), "0,00");
  EXPECT_EQ(ScriviImporto(I("1234.5"), 2), "1.234,50");
  EXPECT_EQ(ScriviImporto(I("1234.5"), 2, false), "1234,50");
  EXPECT_EQ(ScriviImporto(I("1234.5678"), 2), "1.234,5678");
  EXPECT_EQ(ScriviImporto(I("-1234567"), 0), "-1.234.567");
  EXPECT_EQ(ScriviImporto(I("-0.0001"), 0), "-0,0001");
  EXPECT_EQ(ScriviImporto(I("999"), 0), "999");

  EXPECT_EQ(ScriviImportoFisso(I("1234.5678"), 2), "1.234,57");
  EXPECT_EQ(ScriviImportoFisso(I("-1234.5678"), 0, false), "-1235");
  EXPECT_EQ(ScriviImportoFisso(I("-0.004"), 2), "0,00");
  EXPECT_EQ(ScriviImportoFisso(I("-0.01"), 2), "-0,01");
  EXPECT_EQ(ScriviImportoFisso(I("1.2345"), 5), "1,23450");
  EXPECT_EQ(
      ScriviImportoFisso(Importo::DaDecimillesimi(std::numeric_limits<std::int64_t>::min()), 4),
      "-922.337.203.685.477,5808");
}

TEST(FormatoImporto, Picture) {
  struct Caso {
    const char* importo;
    int larghezza;
    bool euro;
    const char* atteso;
  };
  const Caso casi[] = {
      {"1234.5678", 15, true, "      1.234,568"},
      {"-1234.5675", 15, true, "     -1.234,568"},
      {"999.9995", 15, true, "      1.000,000"},
      {"-1234.5", 15, true, "     -1.234,500"},
      {"0", 15, true, "          0,000"},
      {"-0.0004", 15, true, "          0,000"},
      {"123456789", 15, true, "123.456.789,000"},
      {"-123456789", 15, true, "***************"},
      {"-123456789", 16, true, " ***************"},
      {"1234567890", 18, true, "   ***************"},
      {"1.5", 20, true, "               1,500"},
      {"1234.5", 15, false, "          1.235"},
      {"-1234", 15, false, "         -1.234"},
      {"12345678901", 15, false, " 12.345.678.901"},
      {"1234567890123", 15, false, "***************"},
      {"12.3456", 6, true, "12,346"},
      {"123.4", 6, true, "******"},
      {"0.5", 4, true, ",500"},
      {"1.5", 4, true, "****"},
      {"123.9", 3, true, "124"},
      {"1234", 3, true, "***"},
      {"1234", 4, false, "1234"},
      {"1234", 5, false, "1.234"},
      {"7", 0, true, ""},
  };
  for (const Caso& caso : casi)
    EXPECT_EQ(PictureImporto(I(caso.importo), caso.larghezza, caso.euro), caso.atteso)
        << caso.importo << " in " << caso.larghezza;
}

RC_GTEST_PROP(FormatoImportoProprieta, QuelCheScriveRilegge, (Importo importo, bool migliaia)) {
  const std::string testo = ScriviImporto(importo, *rc::gen::inRange(0, 5), migliaia);
  const auto letto = LeggiImporto(testo);
  RC_ASSERT(letto.Riuscito());
  RC_ASSERT(letto.Valore() == importo);
}

RC_GTEST_PROP(FormatoImportoProprieta, PictureTieneLaLarghezza, (Importo importo, bool euro)) {
  const int larghezza = *rc::gen::inRange(1, 30);
  const std::string testo = PictureImporto(importo, larghezza, euro);
  RC_ASSERT(testo.size() == static_cast<std::size_t>(larghezza));
  if (testo.back() == '*' || larghezza < 5) return;
  RC_ASSERT(LeggiImporto(testo).Valore() ==
            Arrotonda(importo, euro ? 3 : 0, ModoArrotonda::Vicino));
}

// Nothing that can be typed breaks the parser, and what it takes it takes again once written.
RC_GTEST_PROP(FormatoImportoProprieta, QualsiasiTesto, ()) {
  const auto testo =
      *rc::gen::container<std::string>(rc::gen::elementOf(std::string("0123459.,-+ a")));
  const auto letto = LeggiImporto(testo);
  if (!letto) {
    RC_ASSERT(!letto.Errore().messaggio.empty());
    return;
  }
  RC_ASSERT(LeggiImporto(ScriviImporto(letto.Valore(), 2)).Valore() == letto.Valore());
}

}  // namespace
}  // namespace fenalto
