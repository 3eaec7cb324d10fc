// Statements kept by shape, and rows added.
#include <gmock/gmock.h>

#include "core/store/BasiDiProva.h"

namespace fenalto {
namespace {

using Causa = ErroreArchivio::Causa;
using prova::CausaDi;

using ArchivioTest = prova::BasiAperte;

TEST_F(ArchivioTest, OneShapeServesManyValuesAndManyShapesAreForgotten) {
  Causali(*basi, 700);
  for (int i = 0; i < 700; ++i) {
    const std::string n = std::to_string(1000 + i);
    EXPECT_EQ(A().Singolo("select Descrizione from Causali where Cod='" + n + "'").Testo(),
              "n" + n);
    EXPECT_EQ(A().Singolo("select Cod as C" + n + " from Causali where Cod='" + n + "'").Testo(),
              n);
  }
  EXPECT_EQ(CausaDi([&] { A().Recordset("select Boh from Causali"); }), Causa::Sql);
  EXPECT_EQ(CausaDi([&] { A().Recordset("select * from Causali where Cod='x"); }), Causa::Sql);
  EXPECT_EQ(CausaDi([&] { A().Recordset("delete * from Causali"); }), Causa::Sql);
  EXPECT_EQ(CausaDi([&] { A().Esegui("select * from Causali"); }), Causa::Sql);
  EXPECT_EQ(CausaDi([&] { A().Vista("zBoh"); }), Causa::Sql);
  EXPECT_EQ(A().Singolo("select Count(*) from Causali").Intero(), 700);
}

TEST_F(ArchivioTest, InsertRefusesWhatTheColumnCannotHold) {
  EXPECT_EQ(CausaDi([&] { A().Inserisci("Boh", {}); }), Causa::Sql);
  EXPECT_EQ(CausaDi([&] { A().Inserisci("Movimenti", {{"_Dt", 1}}); }), Causa::Sql);
  EXPECT_EQ(CausaDi([&] { A().Inserisci("Movimenti", {{"Anno", "duemila"}}); }), Causa::Sql);
  A().Inserisci("Causali", {{"Cod", "a"}});
  std::string messaggio;
  EXPECT_EQ(CausaDi([&] { A().Inserisci("Causali", {{"Cod", "A"}}); }, &messaggio), Causa::Vincolo);
  EXPECT_THAT(messaggio, ::testing::HasSubstr("Causali.Cod"));
  EXPECT_EQ(A().Inserisci("SenzaChiave", {}), 1) << "no default: the empty value";
  EXPECT_EQ(A().Singolo("select Testo from SenzaChiave").Tipo(), Tipo::Testo);
  EXPECT_TRUE(A().Singolo("select Nota from SenzaChiave").Nullo());
}

}  // namespace
}  // namespace fenalto
