// The codes that a field lists while one types: those that begin with the text first.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/archives/FonteCodici.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::archives {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FonteCodiciTest : public prova::DittaDiProva {
 protected:
  std::vector<std::string> Cerca(const std::string& testo, int massimo,
                                 const std::string& filtro = "Cod>='A'") {
    const auto fonte = Fonte(ambiente, {.nome = {}, .tabella = "Vettori", .condizione = filtro});
    std::vector<std::string> codici;
    for (const auto& voce : fonte->Cerca(testo, massimo)) codici.push_back(voce.codice);
    return codici;
  }
};

TEST_F(FonteCodiciTest, PrimaChiCominciaPoiChiContiene) {
  Tessarc().Esegui("delete from Vettori");
  for (const auto& [codice, descrizione] :
       {std::pair{"A1", "Zeta trasporti"}, std::pair{"B1", "La Zèta"}, std::pair{"C1", "Corriere"},
        std::pair{"D1", "zeta e figli"}, std::pair{"ZETA1", "Alfa"}, std::pair{"zeta2", "Zeta"},
        std::pair{"0", "Zeta fuori dal filtro"}}) {
    Tessarc().Inserisci("Vettori", {{"Cod", codice}, {"Descrizione", descrizione}});
  }
  // All of them, and as many as are asked for: codes that begin with the text come however late.
  EXPECT_THAT(Cerca("zeta", 60), ElementsAre("ZETA1", "zeta2", "A1", "B1", "D1"));
  EXPECT_THAT(Cerca("ZÈTA", 5), ElementsAre("ZETA1", "zeta2", "A1", "B1", "D1"));
  EXPECT_THAT(Cerca("zeta", 4), ElementsAre("ZETA1", "zeta2", "A1", "B1"));
  EXPECT_THAT(Cerca("zeta", 3), ElementsAre("ZETA1", "zeta2", "A1"));
  EXPECT_THAT(Cerca("zeta", 1), ElementsAre("ZETA1"));
  EXPECT_THAT(Cerca("zeta", 0), IsEmpty());
  EXPECT_THAT(Cerca("zeta", 60, ""), ElementsAre("ZETA1", "zeta2", "0", "A1", "B1", "D1"));
  EXPECT_THAT(Cerca("", 2), ElementsAre("A1", "B1"));
  EXPECT_THAT(Cerca("niente", 60), IsEmpty());
}

TEST_F(FonteCodiciTest, OgniFonteSiLegge) {
  for (const auto& fonte : Fonti()) {
    EXPECT_NO_THROW(Fonte(ambiente, fonte.nome)->Cerca("a", 3)) << fonte.nome;
    EXPECT_FALSE(Fonte(ambiente, fonte.nome)->Descrizione("mai").has_value()) << fonte.nome;
  }
  EXPECT_THROW(Fonte(ambiente, "niente"), std::logic_error);
}

}  // namespace
}  // namespace fenalto::archives
