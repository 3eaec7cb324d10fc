// What the dialect refuses: where in the text, and why.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/sql/DatiProva.h"

namespace fenalto::prova {
namespace {

struct CasoRifiuto {
  const char* testo;
  /// Where: the place of the first `@`, which is taken out of the text.
  const char* motivo;
};

const CasoRifiuto kCasi[] = {
    {"@", "testo vuoto"},
    {"@DROP TABLE Conti", "istruzione che il linguaggio non ha"},
    {"@PRAGMA foreign_keys=off", "istruzione che il linguaggio non ha"},
    {"@create table x (a)", "istruzione che il linguaggio non ha"},
    {"@Ignota", "nessuna tabella o vista \"Ignota\""},
    {"SELECT * FROM @Ignota", "nessuna tabella o vista \"Ignota\""},
    {"SELECT @Codice FROM Conti", "nessun campo \"Codice\" in Conti"},
    {"SELECT @Conti.Codice FROM Conti", "ha Cod, Descrizione, EP, Livello"},
    {"SELECT @Altra.Cod FROM Conti", "nessuna tabella \"Altra\""},
    {"SELECT @_Dt FROM Movimenti", "nessun campo \"_Dt\""},
    {"SELECT @Cod FROM Conti, Listini", "ambiguo: sta in Conti e in Listini"},
    {"SELECT 1 FROM Conti, @Conti", "compare due volte"},
    {"SELECT Cod FROM Conti WHERE Cod=@'aperto", "testo non chiuso"},
    {"SELECT @[Cod FROM Conti", "quadra non chiusa"},
    {"SELECT @#01/01/2024", "data non chiusa"},
    {"SELECT Cod FROM Conti WHERE @(Cod='x'", "parentesi non chiusa"},
    {"SELECT Cod FROM Conti; @DELETE FROM Conti", "testo dopo la fine"},
    {"SELECT Cod FROM Conti WHERE Cod='a' @'b'", "testo dopo la fine"},
    {"SELECT Cod FROM Conti WHERE @", "qui serve un valore, non la fine"},
    {"SELECT @Foo(Cod) FROM Conti", "funzione che il linguaggio non ha: Foo"},
    {"SELECT @Mid(Cod) FROM Conti", "Mid vuole 2 o 3 argomenti, ne ha 1"},
    {"SELECT Cod FROM Conti WHERE @Sum(Livello)>1", "qui non può stare l'aggregato"},
    {"SELECT @Cod, Sum(Livello) FROM Conti", "non è in GROUP BY"},
    {"SELECT Sum(@Descrizione) FROM Conti", "vuole un numero, non un testo"},
    {"SELECT Sum(@Sum(Livello)) FROM Conti", "qui non può stare l'aggregato"},
    {"SELECT Dt FROM Articoli WHERE Dt@='01/01/2024'", "scrivere la data come #mm/gg/aaaa#"},
    {"SELECT Cod FROM Conti WHERE Cod@=12", "il testo va tra apici"},
    {"SELECT Cod FROM Conti WHERE @Descrizione+1=2", "per unire testi usare &"},
    {"SELECT @EP+1 FROM Conti", "usare IIf"},
    {"SELECT Cod FROM Conti WHERE @Descrizione", "serve una condizione, non un testo"},
    {"SELECT 2@^3", "potenza"},
    {"SELECT Cod FROM Conti ORDER BY @3", "non c'è la colonna numero 3"},
    {"SELECT Cod FROM Conti UNION @SELECT Cod, EP FROM Conti", "numero diverso di colonne"},
    {"SELECT Cod FROM Conti UNION SELECT Cod FROM Listini ORDER BY @Livello", "UNION"},
    {"SELECT Cod AS a, @EP AS A FROM Conti", "dato a due colonne"},
    {"SELECT Cod FROM Conti WHERE Cod IN (@SELECT Cod, EP FROM Conti)", "una colonna sola"},
    {"SELECT * FROM Conti a @FULL JOIN Conti b ON 1=1", "giunzione che il linguaggio non ha"},
    {"SELECT * FROM @zGiro", "richiama se stessa"},
    {"SELECT * FROM @zRotta", "nella vista zRotta, alla posizione 8: non c'è nessun campo"},
    {"INSERT INTO @zConti (Cod) VALUES ('x')", "è una vista"},
    {"INSERT INTO @Conti (Cod,EP) VALUES ('x')", "2 campi e 1 valori"},
    {"INSERT INTO Conti (Cod,@cod) VALUES ('x','y')", "assegnato due volte"},
    {"INSERT INTO Movimenti (@_Dt) VALUES (1)", "non ha il campo \"_Dt\""},
    {"INSERT INTO Articoli (Dt) VALUES (@'2024')", "non può diventare una data"},
    {"UPDATE Conti SET @Prezzo=1", "non ha il campo \"Prezzo\""},
    {"UPDATE Conti SET Cod='x', @Cod='y'", "assegnato due volte"},
    {"UPDATE Conti@, Listini SET Cod='x'", "una tabella sola"},
    {"DELETE FROM Conti @INNER JOIN Listini", "una tabella sola"},
    {"SELECT Cod @INTO x FROM Conti", "SELECT INTO"},
    {"SELECT Count(@DISTINCT Cod) FROM Conti", "DISTINCT dentro una funzione"},
    {"SELECT Cod FROM Conti WHERE Cod @| 'x'", "carattere che il linguaggio non ha"},
};

TEST(Rifiuti, DiconoDoveEPerche) {
  const CatalogoProva catalogo{std::string_view(kCatalogo)};
  for (const CasoRifiuto& caso : kCasi) {
    std::string testo = caso.testo;
    const std::size_t posizione = testo.find('@');
    testo.erase(posizione, 1);
    const auto tradotta = sql::Traduci(testo, catalogo, engine::sqlite::DialettoSqlite());
    ASSERT_FALSE(tradotta.Riuscito()) << testo << "\n" << tradotta.Valore().sql;
    EXPECT_THAT(tradotta.Errore().motivo, testing::HasSubstr(caso.motivo)) << testo;
    EXPECT_EQ(tradotta.Errore().posizione, posizione) << tradotta.Errore().Messaggio(testo);
  }
}

// A literal that isn't of the kind of what it meets is told when it is bound: the next value of the
// same statement may be good.
TEST(Rifiuti, ValoreSbagliatoAllaLegatura) {
  const BancoConti banco;
  EXPECT_EQ(banco.Righe("SELECT Cod FROM Listini WHERE Prezzo='abc'"),
            "ERRORE: \"abc\" non è un numero");
  EXPECT_EQ(banco.Righe("SELECT Cod FROM Listini WHERE Prezzo=''"), "ERRORE: \"\" non è un numero");
  EXPECT_EQ(banco.Righe("SELECT Dt FROM Articoli WHERE Dt=#13/45/2024#"),
            "ERRORE: \"13/45/2024\" non è una data: scriverla come #mm/gg/aaaa#");
  EXPECT_EQ(banco.Righe("SELECT Dt FROM Articoli WHERE Dt=#02/29/2023#"),
            "ERRORE: \"02/29/2023\" non è una data: scriverla come #mm/gg/aaaa#");
  EXPECT_EQ(banco.Righe("SELECT Cod FROM Listini WHERE Prezzo>99999999999999999999"),
            "ERRORE: \"99999999999999999999\" non è un numero nel campo ammesso");
}

TEST(Rifiuti, LAnnidamentoHaUnLimite) {
  const CatalogoProva catalogo{std::string_view(kCatalogo)};
  const auto ripeti = [](std::string_view a, int n) {
    std::string testo;
    for (int i = 0; i < n; ++i) testo += a;
    return testo;
  };
  constexpr int kTroppo = 100'000;
  const std::string testi[] = {
      "SELECT " + ripeti("(", kTroppo),
      "SELECT " + ripeti("- ", kTroppo) + "1",
      "SELECT 1 WHERE " + ripeti("NOT ", kTroppo) + "1",
      "SELECT " + ripeti("1+", kTroppo) + "1",
      "SELECT " + ripeti("1=", kTroppo) + "1",
      "SELECT " + ripeti("Int(", kTroppo),
      "SELECT * FROM " + ripeti("(", kTroppo),
      "SELECT * FROM " + ripeti("(SELECT * FROM ", kTroppo),
      "SELECT * FROM Conti" + ripeti(", Conti", kTroppo),
      ripeti("(", kTroppo),
  };
  for (const std::string& testo : testi) {
    EXPECT_FALSE(sql::Traduci(testo, catalogo, engine::sqlite::DialettoSqlite()).Riuscito())
        << testo.substr(0, 40);
  }
  // Long is not deep.
  const BancoConti banco;
  EXPECT_EQ(banco.Righe("SELECT Cod FROM Conti WHERE Cod='C001'" + ripeti(" OR Cod='x'", 3000)),
            "C001\n");
  EXPECT_EQ(banco.Righe("SELECT 1" + ripeti("+1-1", 45)), "1\n");
  EXPECT_EQ(banco.Righe("SELECT ''" + ripeti("&'a'", 150)), ripeti("a", 150) + "\n");
}

TEST(Rifiuti, IlMessaggioMostraIlPunto) {
  const CatalogoProva catalogo{std::string_view(kCatalogo)};
  const std::string testo = "SELECT Perché FROM Conti";
  EXPECT_EQ(
      sql::Traduci(testo, catalogo, engine::sqlite::DialettoSqlite()).Errore().Messaggio(testo),
      "SQL: non c'è nessun campo \"Perché\" in Conti (posizione 8)\n"
      "SELECT  >>> Perché FROM Conti");
}

}  // namespace
}  // namespace fenalto::prova
