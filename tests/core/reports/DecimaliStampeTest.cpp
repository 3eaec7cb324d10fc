// Decimals of amounts outside the text form.
#include <gtest/gtest.h>

#include "core/reports/AmbienteProva.h"
#include "core/reports/DecimaliStampe.h"
#include "core/values/ImportoDiProva.h"

namespace fenalto::reports {
namespace {

using prova::I;

TEST(DecimaliStampe, DueEIlTerzoDoveServe) {
  AmbienteProva prova;
  CreaDittaProva(OpzioniProva(prova.cartella.Percorso()), "Prova");
  ASSERT_TRUE(prova.ambiente.ApriDitta("Prova", 2026));
  const struct {
    const char* importo;
    const char *due, *tre;  ///< as a model's field of two decimals
    const char *panDue, *panTre;
  } casi[] = {{"1234.5", "1.234,50", "1.234,500", "   1.234,50 ", "   1.234,500"},
              {"0.125", "0,125", "0,125", "       0,125", "       0,125"},
              {"0.1204", "0,12", "0,120", "       0,12 ", "       0,120"},
              {"0.1296", "0,13", "0,130", "       0,13 ", "       0,130"},
              {"-7", "-7,00", "-7,000", "      -7,00 ", "      -7,000"},
              {"0", "0,00", "0,000", "       0,00 ", "       0,000"}};
  for (const bool tre : {false, true}) {
    if (tre) prova.ambiente.ScriviImpostazione({}, "config", "DecStampe", "3");
    const DecimaliStampe decimali(prova.ambiente);
    for (const auto& caso : casi) {
      const Importo importo = I(caso.importo);
      const Valore valore(importo);
      const std::string scritto =
          Sagoma(decimali.DelModello("#.###.###,##", valore)).Riempi({&valore, 1});
      EXPECT_EQ(scritto.substr(scritto.find_first_not_of(' ')), tre ? caso.tre : caso.due);
      EXPECT_EQ(decimali.SulPannello("çççççççççççç", importo, true),
                tre ? caso.panTre : caso.panDue);
    }
    EXPECT_EQ(decimali.DelModello("#####,#", Valore(I("3.14"))), "#####,#");
    EXPECT_EQ(decimali.DelModello("##.###,###", Valore(I("3"))), "##.###,###");
    EXPECT_EQ(decimali.DelModello("####,##", Valore(7)), "####,##");
    EXPECT_EQ(decimali.SulPannello("çççççççç", I("1936"), false), "   1.936");
  }
}

}  // namespace
}  // namespace fenalto::reports
