// Texts of the dialect and the rows they give.
#include <gtest/gtest.h>

#include "core/sql/DatiProva.h"

namespace fenalto::prova {
namespace {

struct CasoDialetto {
  const char *testo, *righe;
};

void PrintTo(const CasoDialetto& caso, std::ostream* uscita) {
  *uscita << caso.testo;
}

class Dialetto : public testing::TestWithParam<CasoDialetto> {};

TEST_P(Dialetto, DaLeRighe) {
  const BancoConti banco;
  EXPECT_EQ(banco.Righe(GetParam().testo), GetParam().righe)
      << banco.Esegui(GetParam().testo).istruzione.sql;
}

constexpr CasoDialetto kLettura[] = {
    {"select cod from CONTI where ep=TRUE", "70.001\n"},
    {"SELECT Cod FROM Conti ORDER BY Descrizione;", "01.002\n01.001\nC001\n70.001\n"},
    {"SELECT Cod FROM Conti ORDER BY 1 DESC", "C001\n70.001\n01.002\n01.001\n"},
    {"SELECT TOP 2 [Cod] FROM [Conti] AS k ORDER BY k.Cod", "01.001\n01.002\n"},
    {"SELECT Descrizione AS [cli/for - tipo documento] FROM Conti WHERE Cod='c001'", "L'Ànfora\n"},
    {"SELECT Cod FROM Conti WHERE Descrizione='L''ànfora'", "C001\n"},
    {"SELECT Cod FROM Conti WHERE Descrizione=\"l'ÀNFORA\"", "C001\n"},
    {"SELECT DISTINCT CFP FROM Movimenti ORDER BY CFP", "C\nP\n"},
    {"SELECT NumDoc FROM Articoli WHERE Dt>=#01/01/2024# AND Dt<=#1/9/2024#", "1\n2\n"},
    {"SELECT NumDoc FROM Articoli WHERE Dt=#2024-01-09#", "2\n"},
    {"SELECT Dt FROM Articoli WHERE Dt BETWEEN #12/31/2023# AND #01/05/2024#", "2024-01-01\n"},
    {"SELECT Cod FROM Conti WHERE Descrizione LIKE '*A*' AND NOT Cod LIKE '01.*'", "C001\n"},
    {"SELECT Cod FROM Conti WHERE Cod NOT LIKE '##.*'", "C001\n"},
    {"SELECT Cod FROM Conti WHERE Cod IN ('C001','x','01.001')", "01.001\nC001\n"},
    {"SELECT Cod FROM Conti WHERE Livello NOT IN (1,2)", "C001\n"},
    {"SELECT Cod FROM Conti WHERE Cod IN (SELECT Conto FROM Movimenti WHERE Causale='ven')",
     "70.001\nC001\n"},
    {"SELECT Cod FROM Conti c WHERE NOT EXISTS (SELECT * FROM Movimenti m WHERE m.Conto=c.Cod)",
     ""},
    {"SELECT Cod FROM Listini WHERE Dal IS NULL OR Note Is Not Null", "A\nB\nc\n"},
    {"SELECT Cod, Prezzo FROM Listini WHERE Prezzo<>0", "A|10\nB|2.5\n"},
    {"SELECT Cod FROM Listini WHERE Prezzo=2.5", "B\n"},
    {"SELECT Cod FROM Listini WHERE Prezzo='10'", "A\n"},
    {"SELECT Cod FROM Conti WHERE Livello>1.5", "70.001\nC001\n"},
    {"SELECT Cod FROM Conti WHERE Livello=1.5 OR EP=-1", "70.001\n"},
    {"SELECT Cod FROM Listini WHERE Pezzi<Prezzo", "A\n"},
    {"SELECT Cod FROM Listini WHERE Prezzo<Pezzi*5", "A\nc\n"},
    {"SELECT Cod FROM Listini WHERE Sconto>0.1", "B\n"},
    {"SELECT * FROM zConti", "01.002|banca\n01.001|Cassa\nC001|L'Ànfora\n"},
    {"zFisse", "7|True|4\n"},
    {"zAlta", "01.001|Cassa\n"},
    {"articoli;",
     "2024|1|2024-01-01|Apertura\n2024|2|2024-01-09|Vendita\n"
     "2023|1|2023-03-15|Vecchia\n"},
    {"SELECT Cod FROM Conti WHERE 1=1 And Livello=3", "C001\n"},
    {"SELECT x.n FROM (SELECT Count(*) AS n, CFP FROM Movimenti GROUP BY CFP) AS x ORDER BY x.n",
     "1\n5\n"},
};
INSTANTIATE_TEST_SUITE_P(Lettura, Dialetto, testing::ValuesIn(kLettura));

constexpr CasoDialetto kGiunzioni[] = {
    {"SELECT m.ID, a.Dt FROM Movimenti m LEFT JOIN Articoli a ON m.Anno=a.Anno AND "
     "m.NumDoc=a.NumDoc WHERE m.ID>=4 ORDER BY m.ID",
     "4|2024-01-09\n5|~\n6|2023-03-15\n"},
    {"SELECT Movimenti.ID, Conti.Descrizione FROM (Movimenti INNER JOIN Articoli ON "
     "(Movimenti.Anno=Articoli.Anno) AND (Movimenti.NumDoc=Articoli.NumDoc)) LEFT JOIN Conti ON "
     "Movimenti.Conto=Conti.Cod WHERE Articoli.Descrizione='vendita' ORDER BY ID",
     "3|L'Ànfora\n4|Merci c/vendite\n"},
    {"SELECT Conti.Cod, m.ID FROM Movimenti AS m RIGHT JOIN Conti ON (m.Conto=Conti.Cod AND "
     "m.ImpoDare>0) ORDER BY Conti.Cod, m.ID",
     "01.001|1\n01.002|~\n70.001|5\n70.001|6\nC001|3\n"},
    {"SELECT a.Cod FROM Conti a, Conti b WHERE a.Livello=b.Livello AND a.Cod<>b.Cod ORDER BY 1",
     "01.001\n01.002\n"},
    {"SELECT c.Cod, a.NumDoc FROM Conti c LEFT JOIN (Movimenti m INNER JOIN Articoli a ON "
     "m.Anno=a.Anno AND m.NumDoc=a.NumDoc) ON m.Conto=c.Cod WHERE c.Cod='C001'",
     "C001|2\n"},
    {"SELECT Cod FROM zMovimenti, Conti WHERE Conto=Cod AND Dt=#01/09/2024# ORDER BY Cod",
     "70.001\nC001\n"},
};
INSTANTIATE_TEST_SUITE_P(Giunzioni, Dialetto, testing::ValuesIn(kGiunzioni));

constexpr CasoDialetto kTotali[] = {
    {"SELECT CFP, Sum(ImpoDare) AS SommaDiImpoDare FROM Movimenti GROUP BY CFP ORDER BY "
     "sommadiimpodare",
     "P|103.3338\nC|122.005\n"},
    {"SELECT Conto, Count(*) FROM Movimenti GROUP BY Conto HAVING Count(*)>1", "70.001|3\n"},
    {"SELECT Conto FROM Movimenti GROUP BY Conto HAVING Sum(ImpoDare)>100.5", "C001\n"},
    {"SELECT Min(Dt), Max(Dt), Count(*) FROM Articoli WHERE Anno=2024",
     "2024-01-01|2024-01-09|2\n"},
    {"SELECT Max(NumDoc) FROM Articoli WHERE Anno=1999", "~\n"},
    {"SELECT Avg(Prezzo), Avg(Pezzi), Sum(Sconto), Count(Pezzi) FROM Listini", "4.1667|5|0.5|2\n"},
    {"SELECT First(Cod), Last(Cod), Min(Cod), Max(Cod) FROM Listini", "A|c|A|c\n"},
    {"SELECT Mid(Conto,1,2) AS Mastro, Sum(ImpoDare-ImpoAvere) AS Saldo FROM Movimenti GROUP BY "
     "Mid(Conto,1,2) ORDER BY Mid(Conto,1,2)",
     "01|0\n70|-118.6712\nC0|122.005\n"},
    {"SELECT Anno, NumDoc, Sum(ImpoDare) AS d, Sum(ImpoAvere) AS a FROM Movimenti GROUP BY Anno, "
     "NumDoc HAVING Sum(ImpoDare)<>Sum(ImpoAvere) ORDER BY Anno DESC, NumDoc",
     "2024|9|0.0005|0\n2023|1|3.3333|0\n"},
    {"SELECT Cod FROM Conti UNION SELECT 'x' FROM Conti ORDER BY Cod DESC",
     "x\nC001\n70.001\n01.002\n01.001\n"},
    {"SELECT Cod, 1 AS Tipo FROM Listini UNION ALL SELECT TOP 1 'z', 2.5 FROM Conti",
     "A|1\nB|1\nc|1\nz|2.5\n"},
};
INSTANTIATE_TEST_SUITE_P(Totali, Dialetto, testing::ValuesIn(kTotali));

constexpr CasoDialetto kEspressioni[] = {
    {"SELECT 2+3*4, 7\\2, 7 Mod 3, 1/4, -(2)-3", "14|3|1|0.25|-5\n"},
    {"SELECT 1.5*2, 1.1*1.1, 10/3, 10.0/3, 0.1+0.2", "3|1.21|3.3333333333333335|3.3333|0.3\n"},
    {"SELECT Livello*100+1 FROM Conti WHERE Cod='C001'", "301\n"},
    {"SELECT Prezzo*1.1, Prezzo/3, Prezzo*Pezzi, -Prezzo FROM Listini WHERE Cod='A'",
     "11|3.3333|30|-10\n"},
    {"SELECT Prezzo*Sconto, Sconto*Prezzo, Pezzi*Prezzo FROM Listini WHERE Cod='B'",
     "1.25|1.25|~\n"},
    {"SELECT Cod & ' ' & Note & Pezzi FROM Listini", "A prima3\nB \nc 7\n"},
    {"SELECT Cod+Note FROM Listini", "Aprima\n~\nc\n"},
    {"SELECT 'a' & chr(13) & Chr(10) & 'b'", "a\r\nb\n"},
    {"SELECT Mid('Perché',6), Mid('abcdef',2,3), Left('àèì',2), Right('àèì',2), Len('è')",
     "é|bcd|àè|èì|1\n"},
    {"SELECT Trim('  x '), LTrim(' x '), RTrim(' x '), UCase('perché'), LCase('À')",
     "x|x | x|PERCHÉ|à\n"},
    {"SELECT Str(5), Str(-2.5), Val(' 12abc'), Val('x'), InStr('Abcb','B'), InStr(3,'abcb','b')",
     " 5|-2.5|12|0|2|4\n"},
    {"SELECT InRicerca('Città Alta','ta al'), InRicerca('x','y'), IniziaRicerca('ÈX','e'), "
     "IniziaRicerca('x',Null)",
     "True|False|True|~\n"},
    {"SELECT Year(Dt), Month(Dt), Day(Dt), Dt+31, Dt-#01/01/2024# FROM Articoli WHERE NumDoc=2",
     "2024|1|9|2024-02-09|8\n"},
    {"SELECT Int(2.7), Int(-2.7), Abs(-3), Abs(-1.5), Int(7)", "2|-3|3|1.5|7\n"},
    {"SELECT IIf(EP,1,2.5), IIf(Livello>1,'alto','basso') FROM Conti WHERE Cod='01.001'",
     "2.5|basso\n"},
    {"SELECT Nz(Pezzi), Nz(Note,'-'), Nz(Dal), IsNull(Dal), Nz(Sconto,1) FROM Listini WHERE "
     "Cod='B'",
     "0|-||True|0.5\n"},
    {"SELECT Prezzo AS p, p*2 AS doppio FROM Listini WHERE Cod='A'", "10|20\n"},
    {"SELECT 'a'='A', 'b' BETWEEN 'A' AND 'C', 3 IN (1,3), Null=1", "True|True|True|~\n"},
    {"SELECT (SELECT Max(Livello) FROM Conti) AS m FROM Listini WHERE Cod='A'", "3\n"},
    {"SELECT Cod FROM Listini WHERE Year(Dal)=2024 AND Attivo", "A\n"},
};
INSTANTIATE_TEST_SUITE_P(Espressioni, Dialetto, testing::ValuesIn(kEspressioni));

struct Azione {
  const char *testo, *dopo, *righe;
};

TEST(Azioni, ScrivonoLeRighe) {
  const Azione azioni[] = {
      {"delete * from Listini", "SELECT Count(*) FROM Listini", "0\n"},
      {"DELETE FROM Listini WHERE Prezzo=0", "SELECT Cod FROM Listini", "A\nB\n"},
      {"DELETE Listini.* FROM Listini WHERE Cod='a'", "SELECT Cod FROM Listini", "B\nc\n"},
      {"UPDATE Listini SET Prezzo=Prezzo*1.1, Note='x' WHERE Cod='A'",
       "SELECT Prezzo, Note FROM Listini WHERE Cod='A'", "11|x\n"},
      {"update Listini set Cod='Z',Pezzi=2.5,Dal=#03/01/2024#,Attivo=True,Sconto=1.25,Note IS NULL "
       "where Prezzo>5",
       "SELECT * FROM Listini WHERE Cod='Z'", "Z|10|1.25|2024-03-01|~|True|2\n"},
      {"UPDATE Listini SET Cod=Null, Prezzo=Null", "SELECT DISTINCT Cod, Prezzo FROM Listini",
       "|0\n"},
      {"INSERT INTO Listini (Cod,Prezzo) VALUES ('01',0)",
       "SELECT Prezzo, Pezzi FROM Listini WHERE Cod='01'", "0|~\n"},
      {"INSERT INTO Listini VALUES ('q',12.345,0.5,#12/31/2024#,\"l'altro\",False,-3)",
       "SELECT * FROM Listini WHERE Cod='q'", "q|12.345|0.5|2024-12-31|l'altro|False|-3\n"},
      {"INSERT INTO Conti (Cod, Descrizione, Livello) SELECT Cod, Note, Prezzo FROM Listini",
       "SELECT * FROM Conti WHERE Len(Cod)=1", "A|prima|False|10\nB||False|2\nc||False|0\n"},
      {"INSERT INTO Conti SELECT Descrizione AS Cod, Cod AS Descrizione FROM Conti WHERE EP",
       "SELECT Cod, Descrizione FROM Conti WHERE Cod LIKE 'M*'", "Merci c/vendite|70.001\n"},
      {"INSERT INTO Conti (Cod) SELECT DISTINCT CFP FROM Movimenti",
       "SELECT Cod FROM Conti WHERE Len(Cod)=1", "P\nC\n"},
      {"DELETE * FROM Conti WHERE Cod IN (SELECT Conto FROM Movimenti)",
       "SELECT Count(*) FROM Conti", "0\n"},
  };
  for (const Azione& azione : azioni) {
    const BancoConti banco;
    const Risposta risposta = banco.Esegui(azione.testo);
    ASSERT_EQ(risposta.errore, "") << azione.testo << "\n" << risposta.istruzione.sql;
    EXPECT_EQ(banco.Righe(azione.dopo), azione.righe) << azione.testo;
  }
}

// A calculation that leaves the range is an error, never a wrong number.
TEST(Azioni, FuoriCampoErrore) {
  const BancoConti banco;
  banco.Motore(
      "INSERT INTO Listini(Cod,Prezzo,Pezzi) VALUES ('max',9223372036854775807,"
      "9223372036854775807),('uno',10000,1)");
  const char* testi[] = {
      "SELECT Prezzo+1 FROM Listini WHERE Cod='max'",
      "SELECT Prezzo*2 FROM Listini WHERE Cod='max'",
      "SELECT Prezzo*1.5 FROM Listini WHERE Cod='max'",
      "SELECT -Prezzo-Prezzo FROM Listini WHERE Cod='max'",
      "SELECT Sum(Prezzo) FROM Listini",
      "SELECT Pezzi*Pezzi FROM Listini WHERE Cod='max'",
      "SELECT IIf(True,Pezzi,Prezzo) FROM Listini WHERE Cod='max'",
      "SELECT Prezzo/Pezzi FROM Listini WHERE Cod='max'",
      "SELECT 1/0",
      "SELECT Prezzo/(Pezzi-1) FROM Listini WHERE Cod='uno'",
      "SELECT 5 Mod 0",
      "SELECT Mid('abc',0)",
      "SELECT Chr(300)",
      "SELECT #12/31/9999#+1",
      "INSERT INTO Listini (Cod,Prezzo) VALUES ('x',999999999999999)",
  };
  for (const char* testo : testi)
    EXPECT_TRUE(banco.Righe(testo).starts_with("ERRORE: ")) << testo << ": " << banco.Righe(testo);
}

}  // namespace
}  // namespace fenalto::prova
