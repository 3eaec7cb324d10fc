// Shapes of texts, what is bound to them, and what the translation tells about its columns.
#include <gtest/gtest.h>

#include "core/sql/DatiProva.h"

namespace fenalto::prova {
namespace {

std::string Chiave(std::string_view testo) {
  const auto forma = sql::FormaDi(testo);
  return forma ? forma.Valore().chiave : "ERRORE: " + forma.Errore().motivo;
}

TEST(Forma, StessaPerAltriValori) {
  const char* uguali[][2] = {
      {"SELECT * FROM t WHERE a='x' And b=5", "select  *\nfrom T where A=\"y''\" and B=-17.25"},
      {"insert into t (a,b) values ('x',5)", "INSERT INTO t(a,b) VALUES ('', -0.5)"},
      {"UPDATE t SET a=1, b=2.5 WHERE d=#01/02/2024#", "update t set a=1.5,b=2 where d=#2024-3-1#"},
      {"SELECT a FROM t WHERE e=True", "SELECT a FROM t WHERE e=false"},
      {"SELECT a FROM t WHERE a IN (1,2)", "SELECT a FROM t WHERE a IN (3.5, -2)"},
  };
  for (const auto& [a, b] : uguali) EXPECT_EQ(Chiave(a), Chiave(b));
}

TEST(Forma, DiversaQuandoCambiaIlSignificato) {
  const char* diversi[][2] = {
      {"SELECT a FROM t WHERE a=1", "SELECT a FROM t WHERE a='1'"},
      {"SELECT a FROM t WHERE a=1", "SELECT a FROM t WHERE a=Null"},
      {"SELECT a FROM t WHERE a=1", "SELECT a FROM t WHERE a=True"},
      {"SELECT a FROM t WHERE a=1", "SELECT a FROM t WHERE a=#01/01/2024#"},
      {"SELECT a*2 FROM t", "SELECT a*2.5 FROM t"},
      {"SELECT TOP 5 a FROM t", "SELECT TOP 6 a FROM t"},
      {"SELECT a, b FROM t ORDER BY 1", "SELECT a, b FROM t ORDER BY 2"},
      {"SELECT a FROM t GROUP BY Mid(a,1,2)", "SELECT a FROM t GROUP BY Mid(a,1,3)"},
      {"SELECT [a b] FROM t", "SELECT [a  b] FROM t"},
      {"SELECT a b FROM t", "SELECT ab FROM t"},
      {"SELECT a FROM t WHERE a LIKE 'x*'", "SELECT a FROM t WHERE a LIKE '*x'"},
      {"SELECT a FROM t WHERE a=0.00001", "SELECT a FROM t WHERE a=0.1"},
  };
  for (const auto& [a, b] : diversi) EXPECT_NE(Chiave(a), Chiave(b));
}

TEST(Forma, LetteraliNellOrdineDelTesto) {
  const auto forma = sql::FormaDi(
      "SELECT TOP 3 'l''Adda', \"d\"\"c\" FROM t WHERE a=-1.5 AND d<#2024-03-01# AND e=true");
  ASSERT_TRUE(forma.Riuscito());
  const std::vector<sql::Letterale>& l = forma.Valore().letterali;
  ASSERT_EQ(l.size(), 5U);
  EXPECT_EQ(l[0].testo, "l'Adda");
  EXPECT_EQ(l[1].testo, "d\"c");
  EXPECT_EQ(l[2].testo, "-1.5");
  EXPECT_EQ(l[3].testo, "03/01/2024");
  EXPECT_EQ(l[4].genere, sql::Letterale::Genere::Booleano);
}

// Whatever a shape's first text was, its translation serves the others.
TEST(Forma, UnaTraduzionePerTuttiIValori) {
  const CatalogoProva catalogo{std::string_view(kCatalogo)};
  const char* coppie[][2] = {
      {"UPDATE Listini SET Prezzo=1, Pezzi=2 WHERE Cod='a'",
       "UPDATE Listini SET Prezzo=1.25, Pezzi=2.5 WHERE Cod='it''s'"},
      {"SELECT Cod FROM Listini WHERE Prezzo IN (1,2.5) OR Pezzi=3 OR Attivo=1",
       "SELECT Cod FROM Listini WHERE Prezzo IN (1.5,2) OR Pezzi=3.5 OR Attivo=-1"},
      {"SELECT Cod FROM Listini WHERE 1=1.5", "SELECT Cod FROM Listini WHERE 1=1"},
  };
  for (const auto& [a, b] : coppie) {
    ASSERT_EQ(Chiave(a), Chiave(b));
    EXPECT_EQ(sql::Traduci(a, catalogo, engine::sqlite::DialettoSqlite()).Valore().sql,
              sql::Traduci(b, catalogo, engine::sqlite::DialettoSqlite()).Valore().sql);
  }
}

struct Colonne {
  const char* testo;
  const char* colonne;  ///< name:origin for each
  const char* base;
};

TEST(Uscita, ColonneOrigineERiga) {
  const CatalogoProva catalogo{std::string_view(kCatalogo)};
  const Colonne casi[] = {
      {"SELECT cod, Livello+1, EP AS x FROM Conti", "Cod:Conti.Cod Espr2: x:Conti.EP ", "Conti"},
      {"SELECT * FROM zConti", "Cod:Conti.Cod Descrizione:Conti.Descrizione ", "Conti"},
      {"zAlta", "Cod:Conti.Cod Descrizione:Conti.Descrizione ", "Conti"},
      {"SELECT TOP 1 Cod FROM Conti WHERE Cod IN (SELECT Cod FROM Listini)", "Cod:Conti.Cod ",
       "Conti"},
      {"SELECT DISTINCT Cod FROM Conti", "Cod:Conti.Cod ", ""},
      {"SELECT Count(*) AS n FROM Conti", "n: ", ""},
      {"SELECT Cod FROM Conti UNION SELECT Cod FROM Listini", "Cod: ", ""},
      {"SELECT * FROM Articoli INNER JOIN Conti ON Articoli.Descrizione=Conti.Descrizione",
       "Anno:Articoli.Anno NumDoc:Articoli.NumDoc Dt:Articoli.Dt "
       "Descrizione:Articoli.Descrizione Cod:Conti.Cod Conti.Descrizione:Conti.Descrizione "
       "EP:Conti.EP Livello:Conti.Livello ",
       ""},
      {"SELECT [x].[Conti.Descrizione] FROM (SELECT * FROM Articoli, Conti) AS x",
       "Conti.Descrizione:Conti.Descrizione ", ""},
  };
  for (const Colonne& caso : casi) {
    const auto tradotta = sql::Traduci(caso.testo, catalogo, engine::sqlite::DialettoSqlite());
    ASSERT_TRUE(tradotta.Riuscito()) << caso.testo << tradotta.Errore().motivo;
    std::string colonne;
    for (const sql::ColonnaUscita& c : tradotta.Valore().colonne)
      colonne += c.nome + ":" + c.tabella + (c.tabella.empty() ? "" : ".") + c.colonna + " ";
    EXPECT_EQ(colonne, caso.colonne) << caso.testo;
    EXPECT_EQ(tradotta.Valore().tabellaBase, caso.base) << caso.testo;
  }
}

TEST(Uscita, IdentitaDelleRighe) {
  const BancoConti banco;
  EXPECT_EQ(banco.Esegui("SELECT Cod FROM zConti WHERE Cod LIKE '01*' ORDER BY Cod").identita,
            (std::vector<std::int64_t>{1, 2}));
}

TEST(Uscita, TabelleLette) {
  const CatalogoProva catalogo{std::string_view(kCatalogo)};
  const auto tradotta =
      sql::Traduci("SELECT * FROM zMovimenti WHERE Conto IN (SELECT Cod FROM conti)", catalogo,
                   engine::sqlite::DialettoSqlite());
  EXPECT_EQ(tradotta.Valore().tabelle,
            (std::vector<std::string>{"Movimenti", "Articoli", "Conti"}));
}

// Columns stay bare in comparisons, so that an index serves whatever the literal's type.
TEST(Uscita, GliIndiciServono) {
  const BancoConti banco;
  banco.Motore(
      "CREATE INDEX i1 ON Listini(Cod); CREATE INDEX i2 ON Listini(Prezzo);"
      "CREATE INDEX i3 ON Listini(Pezzi); CREATE INDEX i4 ON Listini(Dal)");
  const char* testi[] = {
      "SELECT Note FROM Listini WHERE Cod='a'",
      "SELECT Note FROM Listini WHERE Cod LIKE 'a*'",
      "SELECT Note FROM Listini WHERE Prezzo=5",
      "SELECT Note FROM Listini WHERE Prezzo>=5.25",
      "SELECT Note FROM Listini WHERE Prezzo='5'",
      "SELECT Note FROM Listini WHERE Pezzi=5",
      "SELECT Note FROM Listini WHERE Pezzi>-2.5",
      "SELECT Note FROM Listini WHERE Dal BETWEEN #01/01/2024# AND #12/31/2024#",
      "SELECT Note FROM (SELECT * FROM Listini WHERE Attivo) AS x WHERE Cod IN ('a','b')",
      "SELECT l.Note FROM Conti INNER JOIN Listini l ON l.Cod=Conti.Cod",
  };
  for (const char* testo : testi) {
    const std::string cammino = banco.Cammino(testo);
    EXPECT_NE(cammino.find("SEARCH"), std::string::npos) << testo << "\n" << cammino;
    EXPECT_NE(cammino.find("INDEX i"), std::string::npos) << testo << "\n" << cammino;
  }
}

}  // namespace
}  // namespace fenalto::prova
