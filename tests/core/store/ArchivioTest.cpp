// Scratch databases, links between databases, rows copied, and the statements kept by shape.
#include <gmock/gmock.h>

#include "core/store/BasiDiProva.h"

namespace fenalto {
namespace {

using Causa = ErroreArchivio::Causa;
using prova::CausaDi;

class ArchivioTest : public prova::BasiDiProva {
 protected:
  void SetUp() override {
    BasiDiProva::SetUp();
    Crea();
    basi = Apri();
    ASSERT_NE(basi, nullptr);
    temp = cartella / "x1.mdb";
  }
  void TearDown() override {
    basi.reset();
    BasiDiProva::TearDown();
  }
  Archivio& A() { return basi->Tessarc(); }
  std::unique_ptr<Archivio> Scratch() {
    EXPECT_TRUE(A().CreaCopiaTemp(temp, "Num", "movimenti"));
    return basi->ApriTemp(temp);
  }

  std::unique_ptr<BasiDati> basi;
  std::filesystem::path temp;
};

TEST_F(ArchivioTest, ScratchRowsGoThereAndBack) {
  for (int i = 1; i <= 4; ++i) {
    A().Inserisci("Movimenti", {{"Anno", 2024},
                                {"NumDoc", i <= 3 ? 1 : 2},
                                {"Causale", i == 1 ? "V" : "a'b"},
                                {"ImpoDare", Importo::DaUnita(i)}});
  }
  A().Inserisci("Causali", {{"Cod", "V"}, {"Descrizione", "vendita"}});
  auto scratch = Scratch();
  scratch->CollegaTabella(percorsi.tessarc, "CAUSALI");
  scratch->CollegaTabella("Tessarc", "causali");  // again, by key: no harm
  EXPECT_EQ(A().CopiaRighe(temp, "movimenti", {{"anno", "2024"}, {"NUMDOC", 1}}), 3);

  Rs vista = scratch->Vista("zMovimenti");
  EXPECT_EQ(vista.RecordCount(), 3);
  EXPECT_EQ(vista.Fields("DescrCausale").Testo(), "vendita");
  EXPECT_EQ(vista.Fields("Num").Intero(), 1);
  vista.MoveLast();
  EXPECT_TRUE(vista.Fields("DescrCausale").Nullo());
  Rs riga = scratch->Recordset("select * from Movimenti where Num=3");
  ASSERT_TRUE(riga.Edit());
  riga.Imposta("ImpoDare", "9.5");
  riga.Update();

  EXPECT_EQ(scratch->Esegui("update Movimenti set Anno=2025,NumDoc=77"), 3);
  {
    Transazione transazione(*basi);
    EXPECT_EQ(A().Esegui("delete * from Movimenti where Anno=2024 and NumDoc=1"), 3);
    EXPECT_EQ(scratch->CopiaRighe("tessarc", "Movimenti", {}), 3);
    transazione.Conferma();
  }
  EXPECT_EQ(scratch->Esegui("delete * from Movimenti"), 3);
  Rs righe = A().Recordset("select * from Movimenti where NumDoc=77 order by Num");
  EXPECT_EQ(righe.RecordCount(), 3);
  EXPECT_EQ(righe.Fields("Num").Intero(), 5) << "counters fill themselves";
  EXPECT_EQ(righe.Fields("Causale").Testo(), "V");
  righe.MoveLast();
  EXPECT_EQ(righe.Fields("ImpoDare").Importo().Testo(), "9.5");
}

TEST_F(ArchivioTest, CopyConditionsAreValuesWithoutCase) {
  for (const char* testo : {"l'Oro", "L'ORO", "l*", "altro"})
    A().Inserisci("Movimenti", {{"Causale", testo}});
  auto scratch = Scratch();
  EXPECT_EQ(A().CopiaRighe(temp, "Movimenti", {{"Causale", "l'oro"}}), 2);
  EXPECT_EQ(A().CopiaRighe(temp, "Movimenti", {{"Causale", "l*"}}), 1);
  EXPECT_EQ(A().CopiaRighe(temp, "Movimenti", {{"Causale", Valore()}}), 0);
  EXPECT_EQ(CausaDi([&] { A().CopiaRighe(temp, "Movimenti", {{"Boh", 1}}); }), Causa::Sql);
  EXPECT_EQ(CausaDi([&] { A().CopiaRighe(temp, "Causali", {}); }), Causa::Sql);
  EXPECT_EQ(CausaDi([&] { A().CopiaRighe(cartella / "boh.mdb", "Causali", {}); }), Causa::Mancante);
}

TEST_F(ArchivioTest, ScratchIsPrivateAndItsNameIsNotReused) {
  auto scratch = Scratch();
  EXPECT_FALSE(A().CreaCopiaTemp(temp, "Num", "Movimenti")) << "it is open";
  EXPECT_EQ(CausaDi([&] { static_cast<void>(basi->ApriTemp(temp)); }), Causa::Occupato);
  EXPECT_EQ(CausaDi([&] { scratch->Recordset("select * from Articoli"); }), Causa::Sql);
  EXPECT_EQ(CausaDi([&] { scratch->CollegaTabella("tessarc", "Movimenti"); }), Causa::Sql);
  auto altro = basi->ApriTemp([&] {
    EXPECT_TRUE(A().CreaCopiaTemp(cartella / "x2.mdb", "Chiave", "Causali"));
    return cartella / "x2.mdb";
  }());
  altro->CollegaTabella(temp, "Movimenti");
  EXPECT_EQ(altro->Inserisci("Causali", {{"Cod", "A"}}), 1);
  EXPECT_EQ(altro->Singolo("select Chiave from Causali").Intero(), 1);
  scratch->Chiudi();
  EXPECT_EQ(CausaDi([&] { scratch->Recordset("Movimenti"); }), Causa::Mancante);
  EXPECT_TRUE(A().CreaCopiaTemp(temp, "Num", "Movimenti")) << "it is closed";
  scratch = basi->ApriTemp(temp);
  EXPECT_EQ(CausaDi([&] { altro->Recordset("Movimenti"); }), Causa::Sql) << "linked table is gone";
  EXPECT_FALSE(A().CreaCopiaTemp(cartella / "manca" / "x.mdb", "Num", "Movimenti"));
}

TEST_F(ArchivioTest, ClosingAScratchDoesNotDisturbOpenResults) {
  Causali(*basi, 600);
  auto scratch = Scratch();
  Rs rs = A().Recordset("select * from Causali order by Cod");
  scratch->Inserisci("Movimenti", {{"Conto", "1"}});
  {
    Transazione transazione(*basi);
    scratch->Chiudi();  // detached when the transaction ends
    A().Inserisci("Causali", {{"Cod", "0"}});
    transazione.Conferma();
  }
  int lette = 0;
  for (; !rs.Eof(); rs.MoveNext()) {
    EXPECT_EQ(rs.Fields("Cod").Testo(), std::to_string(1000 + lette));
    ++lette;
  }
  EXPECT_EQ(lette, 600);
}

TEST_F(ArchivioTest, TooManyScratchDatabasesIsToldAndOneClosedMakesRoom) {
  std::vector<std::unique_ptr<Archivio>> aperti;
  std::string messaggio;
  int n = 0;
  try {
    for (;; ++n) {
      const auto file = cartella / ("x" + std::to_string(n) + ".mdb");
      ASSERT_TRUE(A().CreaCopiaTemp(file, "Num", "Movimenti"));
      aperti.push_back(basi->ApriTemp(file));
    }
  } catch (const ErroreArchivio& errore) {
    messaggio = errore.what();
  }
  EXPECT_GE(n, 9);
  EXPECT_THAT(messaggio, ::testing::HasSubstr("troppe finestre"));
  aperti.pop_back();
  ASSERT_TRUE(A().CreaCopiaTemp(cartella / "x0b.mdb", "Num", "Movimenti"));
  EXPECT_NO_THROW(aperti.push_back(basi->ApriTemp(cartella / "x0b.mdb")));
}

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
