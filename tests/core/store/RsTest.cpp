#include <array>

#include "core/sql/Criterio.h"
#include "core/store/BasiDiProva.h"

namespace fenalto {
namespace {

using Causa = ErroreArchivio::Causa;
using prova::CausaDi;

class RsTest : public prova::BasiAperte {
 protected:
  void Movimenti(int quanti) {
    Transazione transazione(*basi);
    for (int i = 1; i <= quanti; ++i) {
      A().Inserisci("Movimenti", {{"Anno", 2024},
                                  {"NumDoc", i / 3},
                                  {"Conto", "01." + std::to_string(i % 100)},
                                  {"ImpoDare", Importo::DaDecimillesimi(i * 12'500)}});
    }
    transazione.Conferma();
  }
};

TEST_F(RsTest, ReadsEveryTypeBackAsWritten) {
  const Data giorno = *Data::DaGma(29, 2, 2024);
  EXPECT_EQ(A().Inserisci("ARTICOLI", {{"anno", 2024},
                                       {"NUMDOC", 7},
                                       {"Dt", giorno},
                                       {"Descrizione", "dell'Aquila \"&\" *?#[x] «è»"},
                                       {"EP", true},
                                       {"Cambio", 1.5}}),
            1);
  EXPECT_EQ(A().Inserisci("Articoli", {{"Anno", "2025"}}), 2);
  Rs rs = A().Recordset("select * from articoli order by id");
  EXPECT_EQ(rs.Fields("ANNO").Intero(), 2024);
  EXPECT_EQ(rs.Fields("dt").Data(), giorno);
  EXPECT_EQ(rs.Fields("Descrizione").Testo(), "dell'Aquila \"&\" *?#[x] «è»");
  EXPECT_TRUE(rs.Fields("Ep").Booleano());
  EXPECT_EQ(rs.Fields("Cambio").Reale(), 1.5);
  rs.MoveNext();
  EXPECT_EQ(rs.Fields("Anno").Intero(), 2025);
  EXPECT_TRUE(rs.Fields("Dt").Data().Nulla());
  EXPECT_EQ(rs.Fields("Descrizione").Testo(), "");
  EXPECT_EQ(rs.Fields("Ep").Tipo(), Tipo::Booleano);
  EXPECT_TRUE(rs.Fields("Cambio").Nullo());
  rs.MoveNext();
  EXPECT_TRUE(rs.Eof());
  EXPECT_FALSE(rs.Bof());
  EXPECT_EQ(CausaDi([&] { static_cast<void>(rs.Fields("Anno")); }), Causa::Sql);
  EXPECT_EQ(CausaDi([&] { static_cast<void>(rs.Fields("Nessuno")); }), Causa::Sql);
}

TEST_F(RsTest, TextsAreDataNeverPatternsOrSql) {
  const std::array<const char*, 8> testi = {
      "l'oro", "''", "a\"b", "*", "x'; delete * from Causali; --", "[a-z]", "50%_", "#1/1/2024#"};
  for (const char* testo : testi)
    A().Inserisci("Causali", {{"Cod", testo}, {"Descrizione", testo}});
  for (const char* testo : testi) {
    Rs rs = A().Recordset("select * from Causali where " + sql::Criterio("Cod", "=", testo));
    EXPECT_EQ(rs.RecordCount(), 1) << testo;
    EXPECT_EQ(rs.Fields("Descrizione").Testo(), testo);
    Rs tutte = A().Recordset("Causali");
    EXPECT_FALSE(tutte.FindFirst(sql::Criterio("Descrizione", "=", testo))) << testo;
    EXPECT_EQ(tutte.Fields("Cod").Testo(), testo);
  }
}

TEST_F(RsTest, EmptyResultIsBeforeAndAfterItsRows) {
  Rs rs = A().Recordset("select * from Articoli where Anno=1");
  EXPECT_TRUE(rs.Bof());
  EXPECT_TRUE(rs.Eof());
  EXPECT_EQ(rs.RecordCount(), 0);
  rs.MoveFirst();
  rs.MoveLast();
  rs.MoveNext();
  EXPECT_TRUE(rs.FindFirst("Anno=1"));
  EXPECT_TRUE(A().Singolo("select Max(NumDoc) from Articoli where Anno=1").Nullo());
  EXPECT_TRUE(A().Singolo("select NumDoc from Articoli").Nullo());
}

TEST_F(RsTest, LongResultsReadInPiecesGiveEveryRowOnce) {
  Movimenti(1000);
  Rs rs = A().Recordset("select * from Movimenti order by Num");
  std::int64_t atteso = 0;
  for (; !rs.Eof(); rs.MoveNext()) ASSERT_EQ(rs.Fields("Num").Intero(), ++atteso);
  EXPECT_EQ(atteso, 1000);
  rs.MoveFirst();
  EXPECT_EQ(rs.Fields("Num").Intero(), 1);

  Rs contata = A().Recordset("select * from Movimenti order by Num");
  for (int i = 0; i < 600; ++i) contata.MoveNext();
  EXPECT_EQ(contata.RecordCount(), 1000);
  EXPECT_EQ(contata.Fields("Num").Intero(), 601);
  contata.MoveLast();
  EXPECT_EQ(contata.Fields("Num").Intero(), 1000);

  Rs simili = A().Recordset("select 1 as Uno from Movimenti");
  for (int i = 0; i < 600; ++i) simili.MoveNext();
  EXPECT_TRUE(simili.FindFirst("Uno=2"));
  int restano = 0;
  for (; !simili.Eof(); simili.MoveNext()) ++restano;
  EXPECT_EQ(restano, 400) << "the search keeps the place among rows alike";

  Rs esatta = A().Recordset("select * from Movimenti where Num<=256");
  EXPECT_EQ(esatta.RecordCount(), 256);
  for (int i = 0; i < 256; ++i) esatta.MoveNext();
  EXPECT_TRUE(esatta.Eof());
}

TEST_F(RsTest, VeryLongResultsAreCountedAndReadAgainWithoutBeingHeld) {
  Movimenti(10'700);
  Rs rs = A().Recordset("select * from Movimenti where Num>200 order by Num desc");
  EXPECT_EQ(rs.RecordCount(), 10'500);
  std::int64_t atteso = 10'700;
  for (; !rs.Eof(); rs.MoveNext()) ASSERT_EQ(rs.Fields("Num").Intero(), atteso--);
  EXPECT_EQ(atteso, 200);
  EXPECT_EQ(rs.RecordCount(), 10'500);
  rs.MoveFirst();
  EXPECT_EQ(rs.Fields("Num").Intero(), 10'700);
  EXPECT_EQ(rs.RecordCount(), 10'500);
}

TEST_F(RsTest, HalfReadResultAtRestDoesNotKeepOthersFromWriting) {
  Movimenti(600);
  OpzioniApertura altre = opzioni;
  altre.attesa = std::chrono::milliseconds(50);
  auto seconda = BasiDati::Apri(percorsi, altre);
  ASSERT_TRUE(seconda);
  const auto scrivi = [&] { seconda.Valore()->Tessarc().Inserisci("Causali", {{"Cod", "X"}}); };
  Rs rs = A().Recordset("select * from Movimenti order by Num");
  EXPECT_EQ(CausaDi(scrivi), Causa::Occupato);
  basi->RilasciaLetture(std::chrono::milliseconds(0));
  EXPECT_NO_THROW(scrivi());
  std::int64_t lette = 0;
  for (; !rs.Eof(); rs.MoveNext()) ASSERT_EQ(rs.Fields("Num").Intero(), ++lette);
  EXPECT_EQ(lette, 600);
}

TEST_F(RsTest, WritingWhileReadingSeesTheRowsAsTheyWere) {
  Movimenti(600);
  Rs rs = A().Recordset("select * from Movimenti order by Num");
  int lette = 0;
  for (; !rs.Eof(); rs.MoveNext()) {
    if (lette == 0) A().Esegui("update Movimenti set ImpoDare=0");
    if (lette == 300) A().Esegui("delete * from Movimenti");
    EXPECT_FALSE(rs.Fields("ImpoDare").Importo().Zero());
    ++lette;
  }
  EXPECT_EQ(lette, 600);
  EXPECT_EQ(A().Singolo("select Count(*) from Movimenti").Intero(), 0);
}

TEST_F(RsTest, FindFirstTellsTheNegationAndStaysWhenNothingIsFound) {
  Movimenti(900);
  Rs rs = A().Recordset("select * from Movimenti order by Num");
  struct Caso {
    const char* criterio;
    std::int64_t trova;  ///< Num of the row found, 0 for none
  };
  for (const Caso& caso :
       {Caso{"Num=500", 500}, Caso{"conto='01.7'", 7}, Caso{"Conto='01.7' And NumDoc=69", 207},
        Caso{"ImpoDare=2.5", 2}, Caso{"ImpoDare=2.50001", 0}, Caso{"Conto='01.700'", 0},
        Caso{"NumDoc>100 And Conto Like '*.8'", 308}, Caso{"Num=901", 0}}) {
    rs.MoveFirst();
    rs.MoveNext();
    EXPECT_EQ(rs.FindFirst(caso.criterio), caso.trova == 0) << caso.criterio;
    EXPECT_EQ(rs.Fields("Num").Intero(), caso.trova == 0 ? 2 : caso.trova) << caso.criterio;
  }
  EXPECT_EQ(CausaDi([&] { rs.FindFirst("Boh=1"); }), Causa::Sql);
}

TEST_F(RsTest, AddedRowBecomesCurrentWithItsCounter) {
  Rs rs = A().Recordset("select * from Articoli where Anno=2024");
  EXPECT_EQ(rs.EditMode(), ModoModifica::Nessuna);
  rs.AddNew();
  EXPECT_EQ(rs.EditMode(), ModoModifica::Aggiunta);
  rs.Imposta("NumDoc", "12");
  rs.Imposta("Dt", Valore());
  EXPECT_EQ(rs.Fields("NumDoc").Intero(), 12);
  rs.CancelUpdate();
  EXPECT_EQ(A().Singolo("select Count(*) from Articoli").Intero(), 0);
  for (int anno : {2024, 2031}) {  // the second isn't part of the query
    rs.AddNew();
    rs.Imposta("Anno", anno);
    rs.Imposta("NumDoc", 12);
    rs.Imposta("Descrizione", Valore());
    rs.Update();
    EXPECT_EQ(rs.EditMode(), ModoModifica::Nessuna);
    EXPECT_EQ(rs.Fields("Anno").Intero(), anno);
    EXPECT_EQ(rs.Fields("ID").Intero(), anno == 2024 ? 1 : 2);
  }
  EXPECT_EQ(rs.RecordCount(), 2);
  rs.AddNew();
  EXPECT_EQ(CausaDi([&] { rs.Imposta("ID", 5); }), Causa::Sql);
  EXPECT_EQ(CausaDi([&] { rs.Imposta("Dt", "boh"); }), Causa::Sql);
  rs.Imposta("Anno", 2024);
  rs.Imposta("NumDoc", 12);
  EXPECT_EQ(CausaDi([&] { rs.Update(); }), Causa::Vincolo);
  EXPECT_EQ(rs.EditMode(), ModoModifica::Aggiunta) << "what was typed is still there";
  rs.Imposta("NumDoc", 13);
  rs.Update();
  EXPECT_EQ(A().Singolo("select Count(*) from Articoli").Intero(), 3);
}

TEST_F(RsTest, AddingToALongResultDoesNotLoseRows) {
  Movimenti(700);
  Rs rs = A().Recordset("select * from Movimenti order by Num desc");
  EXPECT_EQ(rs.Fields("Num").Intero(), 700);
  rs.AddNew();
  rs.Imposta("Conto", "99.1");
  rs.Update();
  EXPECT_EQ(rs.Fields("Num").Intero(), 701);
  EXPECT_EQ(rs.RecordCount(), 701);
  EXPECT_EQ(rs.Fields("Num").Intero(), 701);
  rs.MoveLast();
  EXPECT_EQ(rs.Fields("Num").Intero(), 1);
}

TEST_F(RsTest, RefusedAdditionToALongResultLosesNothing) {
  Causali(*basi, 600);
  Rs rs = A().Recordset("select * from Causali order by Cod");
  rs.MoveNext();
  rs.AddNew();
  rs.Imposta("Cod", "1500");
  EXPECT_EQ(CausaDi([&] { rs.Update(); }), Causa::Vincolo);
  rs.CancelUpdate();
  for (int i = 1; i < 600; ++i, rs.MoveNext())
    ASSERT_EQ(rs.Fields("Cod").Testo(), std::to_string(1000 + i));
  EXPECT_TRUE(rs.Eof());
}

TEST_F(RsTest, TwoStationsCannotEditOneRecord) {
  A().Inserisci("Articoli", {{"Anno", 2024}, {"NumDoc", 1}});
  A().Inserisci("Articoli", {{"Anno", 2024}, {"NumDoc", 2}});
  OpzioniApertura altre = opzioni;
  altre.stazione = "MAGAZZINO";
  auto seconda = BasiDati::Apri(percorsi, altre);
  ASSERT_TRUE(seconda) << seconda.Errore().messaggio;
  Archivio& b = seconda.Valore()->Tessarc();

  Rs qui = A().Recordset("select * from Articoli where NumDoc=1");
  Rs la = b.Recordset("select * from Articoli where NumDoc=1");
  ASSERT_TRUE(qui.Edit());
  const auto rifiuto = la.Edit();
  ASSERT_FALSE(rifiuto);
  EXPECT_EQ(rifiuto.Errore().stazione, "UFFICIO");
  EXPECT_EQ(la.EditMode(), ModoModifica::Nessuna);
  EXPECT_EQ(CausaDi([&] { la.Delete(); }), Causa::Occupato);
  Rs altroRecord = b.Recordset("select * from Articoli where NumDoc=2");
  EXPECT_TRUE(altroRecord.Edit());

  qui.Imposta("Descrizione", "prima");
  qui.Update();
  ASSERT_TRUE(la.Edit()) << "free after Update";
  EXPECT_EQ(la.Fields("Descrizione").Testo(), "prima") << "Edit reads the row again";
  la.CancelUpdate();
  ASSERT_TRUE(qui.Edit());
  qui.mClose();
  EXPECT_TRUE(la.Edit()) << "free after mClose";
}

TEST_F(RsTest, RowDeletedMeanwhileIsTold) {
  A().Inserisci("Causali", {{"Cod", "A"}});
  Rs rs = A().Recordset("Causali");
  Rs altra = A().Recordset("Causali");
  A().Esegui("delete * from Causali");
  A().Inserisci("Causali", {{"Cod", "B"}});  // takes the identity of the deleted row
  const auto esito = rs.Edit();
  ASSERT_FALSE(esito);
  EXPECT_TRUE(esito.Errore().stazione.empty());
  altra.Delete();
  EXPECT_EQ(A().Singolo("select Count(*) from Causali").Intero(), 1) << "B is another record";
}

TEST_F(RsTest, DeleteMovesToTheNext) {
  Movimenti(5);
  Rs rs = A().Recordset("select * from Movimenti order by Num");
  rs.FindFirst("Num=2");
  rs.Delete();
  EXPECT_EQ(rs.Fields("Num").Intero(), 3);
  EXPECT_TRUE(rs.FindFirst("Num=2"));
  EXPECT_EQ(rs.RecordCount(), 4);
  while (!rs.Eof()) rs.Delete();
  EXPECT_EQ(A().Singolo("select Count(*) from Movimenti").Intero(), 1);
}

TEST_F(RsTest, ChangedRowIsReadAgainWithItsExpressions) {
  Rs rs = A().Recordset("select NumDoc, Dt, NumDoc*2 as Doppio, Year(Dt) as A from Articoli");
  rs.AddNew();
  rs.Imposta("NumDoc", 4);
  rs.Imposta("Dt", *Data::DaGma(1, 5, 2024));
  EXPECT_EQ(CausaDi([&] { rs.Imposta("Doppio", 1); }), Causa::Sql);
  rs.Update();
  EXPECT_EQ(rs.Fields("Doppio").Intero(), 8);
  EXPECT_EQ(rs.Fields("A").Intero(), 2024);
  ASSERT_TRUE(rs.Edit());
  rs.Imposta("NumDoc", 5);
  rs.Update();
  EXPECT_EQ(rs.Fields("Doppio").Intero(), 10);
}

TEST_F(RsTest, ViewsAndTotalsAreOnlyRead) {
  A().Inserisci("Causali", {{"Cod", "V"}, {"Descrizione", "vendita"}});
  A().Inserisci("Movimenti", {{"Causale", "V"}});
  Rs vista = A().Vista("ZMOVIMENTI");
  EXPECT_EQ(vista.Fields("DescrCausale").Testo(), "vendita");
  EXPECT_EQ(vista.Indice("_Dt"), std::nullopt);
  Rs somma = A().Recordset("select Sum(ImpoDare) as Totale from Movimenti");
  EXPECT_FALSE(somma.Modificabile());
  EXPECT_EQ(CausaDi([&] { somma.AddNew(); }), Causa::Sql);
}

TEST_F(RsTest, SameTextOpenTwiceKeepsTwoPositions) {
  Movimenti(600);
  Rs fuori = A().Recordset("select * from Movimenti where Num>0 order by Num");
  for (int i = 0; i < 300; ++i) fuori.MoveNext();
  Rs dentro = A().Recordset("select * from Movimenti where Num>400 order by Num");
  EXPECT_EQ(dentro.Fields("Num").Intero(), 401);
  EXPECT_EQ(fuori.Fields("Num").Intero(), 301);
  for (int i = 0; i < 250; ++i) fuori.MoveNext();
  EXPECT_EQ(fuori.Fields("Num").Intero(), 551);
}

TEST_F(RsTest, ResultOutlivesItsDatabaseWithWhatItHasRead) {
  Movimenti(600);
  Rs rs = A().Recordset("select * from Movimenti order by Num");
  basi.reset();
  EXPECT_EQ(rs.Fields("Num").Intero(), 1);
  for (int i = 0; i < 700; ++i) rs.MoveNext();
  EXPECT_TRUE(rs.Eof());
  EXPECT_EQ(CausaDi([&] { rs.AddNew(); }), Causa::Mancante);
}

}  // namespace
}  // namespace fenalto
