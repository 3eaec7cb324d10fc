#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "core/values/Aritmetica.h"
#include "core/values/Generatori.h"
#include "core/values/ImportoDiProva.h"

namespace fenalto {
namespace {

using prova::I;

const Importo kImportoMassimo = Importo::DaDecimillesimi(std::numeric_limits<std::int64_t>::max());
const Importo kImportoMinimo = Importo::DaDecimillesimi(std::numeric_limits<std::int64_t>::min());

TEST(Aritmetica, Arrotonda) {
  struct Caso {
    const char* importo;
    int decimali;
    ModoArrotonda modo;
    const char* atteso;
  };
  constexpr auto kSu = ModoArrotonda::Eccesso;
  constexpr auto kGiu = ModoArrotonda::Difetto;
  constexpr auto kVicino = ModoArrotonda::Vicino;
  const Caso casi[] = {
      {"1.125", 2, kVicino, "1.13"},
      {"-1.125", 2, kVicino, "-1.13"},
      {"1.1249", 2, kVicino, "1.12"},
      {"1.13", 2, kVicino, "1.13"},
      {"1.13", 2, kGiu, "1.13"},
      {"1.1399", 2, kGiu, "1.13"},
      {"-1.1399", 2, kGiu, "-1.13"},
      // An exact amount rises by one in the last place, but not without decimals.
      {"1.13", 2, kSu, "1.14"},
      {"-1.13", 2, kSu, "-1.14"},
      {"1.1301", 2, kSu, "1.14"},
      {"0", 2, kSu, "0.01"},
      {"1.3", 1, kSu, "1.4"},
      {"7", 0, kSu, "7"},
      {"7.0001", 0, kSu, "8"},
      {"7.5", 0, kVicino, "8"},
      {"-7.5", 0, kVicino, "-8"},
      {"7.4999", 0, kVicino, "7"},
      {"1.2345", 4, kVicino, "1.2345"},
      {"-0.004", 2, kVicino, "0"},
  };
  for (const Caso& caso : casi)
    EXPECT_EQ(Arrotonda(I(caso.importo), caso.decimali, caso.modo), I(caso.atteso))
        << caso.importo << " a " << caso.decimali << " modo " << static_cast<int>(caso.modo);
  EXPECT_THROW(Arrotonda(kImportoMassimo, 0, ModoArrotonda::Vicino), FuoriCampo);
  EXPECT_EQ(Arrotonda(kImportoMinimo, 0, ModoArrotonda::Difetto),
            Importo::DaUnita(-922337203685477));
  EXPECT_THROW(Arrotonda(I("1"), 5, ModoArrotonda::Vicino), std::invalid_argument);
}

TEST(Aritmetica, ModoDaNumero) {
  EXPECT_EQ(ModoDaNumero(1), ModoArrotonda::Eccesso);
  EXPECT_EQ(ModoDaNumero(3), ModoArrotonda::Vicino);
  for (const int numero : {-1, 0, 4}) EXPECT_EQ(ModoDaNumero(numero), std::nullopt);
}

TEST(Aritmetica, Iva) {
  struct Caso {
    const char *imponibile, *aliquota;
    bool euro;
    const char* atteso;
  };
  const Caso casi[] = {
      {"10", "22", true, "2.2"},      {"-10", "22", true, "-2.2"},
      {"0.25", "22", true, "0.06"},                                // 0.055: half a cent goes up
      {"-0.25", "22", true, "-0.06"},                              // and down with the sign
      {"0.2499", "22", true, "0.06"},                              // 0.054978 is held as 0.0550
      {"0.2497", "22", true, "0.05"},                              // 0.054934 as 0.0549
      {"1234.56", "0", true, "0"},    {"101", "20", false, "21"},  // 20.2 lire
      {"-101", "20", false, "-21"},   {"100", "20", false, "20"},
      {"100.004", "20", false, "20"},  // 20.0008: almost exact
      {"100.005", "20", false, "21"},  // 20.001
      {"0.0001", "20", false, "0"},
  };
  for (const Caso& caso : casi)
    EXPECT_EQ(CalcolaIva(I(caso.imponibile), I(caso.aliquota), caso.euro), I(caso.atteso))
        << caso.imponibile << " al " << caso.aliquota << (caso.euro ? " euro" : " lire");
  EXPECT_THROW(CalcolaIva(kImportoMassimo, I("200"), true), FuoriCampo);
}

TEST(Aritmetica, Scorporo) {
  EXPECT_EQ(ScorporaImponibile(I("122"), I("22")), I("100"));
  EXPECT_EQ(ScorporaImponibile(I("100"), I("22")), I("81.97"));
  EXPECT_EQ(ScorporaImponibile(I("-100"), I("22")), I("-81.97"));
  EXPECT_EQ(ScorporaImponibile(I("12345"), I("20")), I("10287.5"));
  EXPECT_THROW(ScorporaImponibile(I("1"), I("-100")), std::domain_error);
}

TEST(Aritmetica, ScontoCassa) {
  struct Caso {
    const char *importo, *sconto;
    bool euro;
    const char* atteso;
  };
  const Caso casi[] = {
      {"100", "3", true, "97"},        {"10.05", "3", true, "9.74"},  // 9.7485 cut
      {"-10.05", "3", true, "-9.75"},  // -9.7485 cut towards minus infinity
      {"33.33", "0", true, "33.33"},   {"1.13", "0", true, "1.13"},
      {"10050", "3", false, "9749"},    // discount 301.5, cut to 301
      {"-10050", "3", false, "-9748"},  // discount -301.5, cut to -302
  };
  for (const Caso& caso : casi)
    EXPECT_EQ(ApplicaScontoCassa(I(caso.importo), I(caso.sconto), caso.euro), I(caso.atteso))
        << caso.importo << " meno " << caso.sconto << "%";
}

TEST(Aritmetica, Cambio) {
  EXPECT_EQ(EuroInLire(I("1"), true), I("1936"));
  EXPECT_EQ(EuroInLire(I("-1"), true), I("-1936"));
  EXPECT_EQ(EuroInLire(I("100"), true), I("193627"));
  EXPECT_EQ(EuroInLire(I("50"), true), I("96814"));    // 96813.5
  EXPECT_EQ(EuroInLire(I("-50"), true), I("-96813"));  // Int of -96813.5 + 0.5
  EXPECT_EQ(EuroInLire(I("1.5"), false), I("1.5"));
  EXPECT_EQ(LireInEuro(I("1936.27"), 2), I("1"));
  EXPECT_EQ(LireInEuro(I("1000"), 2), I("0.52"));
  EXPECT_EQ(LireInEuro(I("-1000"), 2), I("-0.52"));
  EXPECT_EQ(LireInEuro(I("1000"), 4), I("0.5165"));
  EXPECT_EQ(LireInEuro(I("968.135"), 0), I("1"));  // exactly half a euro
  EXPECT_EQ(LireInEuro(I("-968.135"), 0), I("0"));
  EXPECT_THROW(EuroInLire(kImportoMassimo, true), FuoriCampo);
}

// With ! : binary floating point gives another cent.
TEST(Aritmetica, IvaIndetraibile) {
  struct Caso {
    const char *iva, *percento, *euro, *lire;
  };
  for (const Caso& caso : {Caso{"8.8", "50", "4.4", "4"},
                           {"8.21", "60", "4.92", "4"},
                           {"-8.21", "60", "-4.93", "-5"},  // towards minus infinity
                           {"22", "0", "0", "0"},
                           {"22.5", "100", "22.5", "22"},
                           {"0.57", "100", "0.57", "0"},  // !
                           {"0.29", "100", "0.29", "0"},  // !
                           {"2.9", "10", "0.29", "0"},    // !
                           {"2.85", "40", "1.14", "1"},   // !
                           {"1.14", "50", "0.57", "0"},   // !
                           {"0.95", "60", "0.57", "0"},   // !
                           {"1.13", "100", "1.13", "1"},
                           {"3333", "33.33", "1110.88", "1110"},
                           {"0.01", "99", "0", "0"},
                           {"-0.01", "1", "-0.01", "-1"}}) {
    EXPECT_EQ(IvaIndetraibile(I(caso.iva), I(caso.percento), true), I(caso.euro))
        << caso.iva << " " << caso.percento;
    EXPECT_EQ(IvaIndetraibile(I(caso.iva), I(caso.percento), false), I(caso.lire))
        << caso.iva << " " << caso.percento;
  }
  EXPECT_THROW(IvaIndetraibile(kImportoMassimo, I("200"), true), FuoriCampo);
}

TEST(Aritmetica, CentesimiDellIvaEDelloScorporo) {
  struct Caso {
    const char *imponibile, *aliquota, *iva;
  };
  for (const Caso& caso : {Caso{"2.85", "10", "0.29"},  // all of them a cent less in binary
                           {"10.05", "10", "1.01"},
                           {"10.75", "10", "1.08"},
                           {"-10.05", "10", "-1.01"}}) {
    EXPECT_EQ(CalcolaIva(I(caso.imponibile), I(caso.aliquota), true), I(caso.iva))
        << caso.imponibile;
  }
  for (const Caso& caso : {Caso{"1.17", "4", "1.13"},
                           {"3.51", "4", "3.38"},
                           {"10.53", "4", "10.13"},
                           {"-20.15", "4", "-19.38"}}) {
    EXPECT_EQ(ScorporaImponibile(I(caso.imponibile), I(caso.aliquota)), I(caso.iva))
        << caso.imponibile;
  }
}

TEST(Aritmetica, Riga) {
  const Importo zero;
  const Importo tre = I("3");
  const Importo prezzo = I("1.3333");
  // 10% of 1.3333 is held as 0.1333: 1.2000 net.
  EXPECT_EQ(PrezzoNetto(prezzo, I("10"), zero, zero), I("1.2"));
  EXPECT_EQ(ImportoRiga(prezzo, I("10"), zero, zero, tre, true, false), I("3.6"));
  // 3.9999 without discount: cut, rounded, and in lire.
  EXPECT_EQ(ImportoRiga(prezzo, zero, zero, zero, tre, true, false), I("3.99"));
  EXPECT_EQ(ImportoRiga(prezzo, zero, zero, zero, tre, true, true), I("4"));
  EXPECT_EQ(ImportoRiga(prezzo, zero, zero, zero, tre, false, true), I("3"));
  EXPECT_EQ(ImportoRiga(prezzo, zero, zero, zero, I("-3"), true, false), I("-4"));
  // A chain, not a sum: 100 less 50, less 10, less 20 percent.
  EXPECT_EQ(PrezzoNetto(I("100"), I("50"), I("10"), I("20")), I("36"));
  EXPECT_EQ(PrezzoNetto(I("99.9999"), I("100"), I("7"), I("7")), zero);
  EXPECT_THROW(ImportoRiga(kImportoMassimo, zero, zero, zero, tre, true, false), FuoriCampo);
}

}  // namespace
}  // namespace fenalto
