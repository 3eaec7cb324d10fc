#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <stdexcept>

#include "core/values/Generatori.h"
#include "core/values/ImportoDiProva.h"
#include "core/values/Valore.h"

namespace fenalto {
namespace {

using prova::I;

TEST(Valore, Neutro) {
  EXPECT_EQ(Valore().Neutro(), "");
  EXPECT_EQ(Valore(true).Neutro(), "True");
  EXPECT_EQ(Valore(false).Neutro(), "False");
  EXPECT_EQ(Valore(-12).Neutro(), "-12");
  EXPECT_EQ(Valore(I("1234.50")).Neutro(), "1234.5");
  EXPECT_EQ(Valore(0.1).Neutro(), "0.1");
  EXPECT_EQ(Valore(-0.0).Neutro(), "0");
  EXPECT_EQ(Valore(1e21).Neutro(), "1000000000000000000000");
  EXPECT_EQ(Valore(1e-7).Neutro(), "0.0000001");
  EXPECT_FALSE(Valore(std::numeric_limits<double>::denorm_min()).Neutro().empty());
  EXPECT_EQ(Valore(*Data::DaIso("2024-03-15")).Neutro(), "2024-03-15");
  EXPECT_EQ(Valore(Data()).Neutro(), "");
  EXPECT_EQ(Valore("testo").Neutro(), "testo");
}

TEST(Valore, NumeriDaTesto) {
  struct Caso {
    const char *testo, *importo;
    std::int64_t intero;
  };
  const Caso casi[] = {{"", "0", 0},
                       {"  ", "0", 0},
                       {" 12 ", "12", 12},
                       {"-1234.5", "-1234.5", -1234},  // tie to even
                       {"1235.5", "1235.5", 1236},
                       {"0.00005", "0", 0},
                       {"0.00015", "0.0002", 0},
                       {"-0.00015", "-0.0002", 0},
                       {"0.000050001", "0.0001", 0},
                       {"-0.00007", "-0.0001", 0},
                       {"1e3", "1000", 1000}};
  for (const Caso& caso : casi) {
    EXPECT_EQ(Valore(caso.testo).Importo(), I(caso.importo)) << caso.testo;
    EXPECT_EQ(Valore(caso.testo).Intero(), caso.intero) << caso.testo;
  }
  EXPECT_EQ(Valore("9223372036854775807").Intero(), std::numeric_limits<std::int64_t>::max());
  for (const char* testo : {"abc", "12a", "1,5", "--1", "nan", "inf", "1.2.3"}) {
    EXPECT_THROW(static_cast<void>(Valore(testo).Importo()), std::domain_error) << testo;
    EXPECT_THROW(static_cast<void>(Valore(testo).Intero()), std::domain_error) << testo;
    EXPECT_THROW(static_cast<void>(Valore(testo).Reale()), std::domain_error) << testo;
    EXPECT_THROW(static_cast<void>(Valore(testo).Booleano()), std::domain_error) << testo;
  }
  EXPECT_THROW(static_cast<void>(Valore("1e300").Importo()), FuoriCampo);
  EXPECT_THROW(static_cast<void>(Valore("922337203685477.58075").Importo()), FuoriCampo);
  EXPECT_THROW(static_cast<void>(Valore("99999999999999999999").Intero()), FuoriCampo);
}

TEST(Valore, AltreConversioni) {
  EXPECT_EQ(Valore(0.1 + 0.2).Importo(), I("0.3"));
  EXPECT_EQ(Valore(1.00005).Importo(), I("1"));  // as written, a tie, to even
  EXPECT_EQ(Valore(true).Intero(), 1);
  EXPECT_TRUE(Valore(-1).Booleano());
  EXPECT_TRUE(Valore("true").Booleano());
  EXPECT_FALSE(Valore("").Booleano());
  EXPECT_TRUE(Valore("-1").Booleano());
  EXPECT_EQ(Valore("2024-03-15").Data().Iso(), "2024-03-15");
  EXPECT_TRUE(Valore("").Data().Nulla());
  EXPECT_TRUE(Valore().Data().Nulla());
  EXPECT_EQ(Valore(45'366).Data().Iso(), "2024-03-15");
  EXPECT_EQ(Valore(Data::DaGiorni(45'366)).Intero(), 45'366);
  EXPECT_THROW(static_cast<void>(Valore("2024-02-30").Data()), std::domain_error);
  EXPECT_THROW(static_cast<void>(Valore(true).Data()), std::domain_error);
  EXPECT_THROW(static_cast<void>(Valore(std::int64_t{1} << 40).Data()), std::domain_error);
  EXPECT_THROW(static_cast<void>(Valore(Data()).Booleano()), std::domain_error);
  EXPECT_THROW(static_cast<void>(Valore(5).RifTesto()), std::domain_error);
  EXPECT_THROW(static_cast<void>(Valore(std::numeric_limits<double>::quiet_NaN()).Intero()),
               std::domain_error);
  EXPECT_THROW(static_cast<void>(Valore(std::numeric_limits<double>::infinity()).Importo()),
               FuoriCampo);
  EXPECT_EQ(Valore(I("922337203685477.5807")).Intero(), 922'337'203'685'478);
}

TEST(Valore, ComeEVuoto) {
  EXPECT_TRUE(Valore().Come(Tipo::Testo).Nullo());
  EXPECT_TRUE(Valore(3).Come(Tipo::Nullo).Nullo());
  for (const Tipo tipo :
       {Tipo::Booleano, Tipo::Intero, Tipo::Importo, Tipo::Reale, Tipo::Data, Tipo::Testo}) {
    EXPECT_EQ(Valore::Vuoto(tipo).Tipo(), tipo);
    EXPECT_EQ(Valore(tipo == Tipo::Data ? "2024-03-15" : "0").Come(tipo).Tipo(), tipo);
    EXPECT_EQ(Valore("").Come(tipo), Valore::Vuoto(tipo));
  }
  EXPECT_EQ(Nz(Valore()), Valore(0));
  EXPECT_EQ(Nz(Valore("")), Valore(""));
  EXPECT_EQ(NzStr(Valore()), "");
  EXPECT_EQ(NzStr(Valore(I("1.50"))), "1.5");
}

TEST(Valore, Uguaglianza) {
  EXPECT_EQ(Valore(2), Valore(I("2")));
  EXPECT_EQ(Valore(I("0.1")), Valore(0.1));
  EXPECT_EQ(Valore(true), Valore(1));
  EXPECT_EQ(Valore("Rossi"), Valore("ROSSI"));
  EXPECT_EQ(Valore(), Valore());
  // Multiplying the integer by the scale must not wrap around.
  EXPECT_FALSE(Valore(std::numeric_limits<std::int64_t>::max()) == Valore(I("-1")));
  EXPECT_FALSE(Valore() == Valore(0));
  EXPECT_FALSE(Valore() == Valore(""));
  EXPECT_FALSE(Valore("2") == Valore(2));
  EXPECT_FALSE(Valore(Data()) == Valore(0));
}

RC_GTEST_PROP(ValoreProprieta, NeutroAndataERitorno, (Importo importo, Data data, double reale)) {
  RC_ASSERT(Valore(Valore(importo).Neutro()).Come(Tipo::Importo) == Valore(importo));
  RC_ASSERT(Valore(Valore(data).Neutro()).Come(Tipo::Data) == Valore(data));
  RC_ASSERT(Valore(Valore(reale).Neutro()).Come(Tipo::Reale) == Valore(reale));
}

}  // namespace
}  // namespace fenalto
