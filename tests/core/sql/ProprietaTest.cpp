// Properties that hold whatever the data: conditions written by Criterio, searches in memory, and
// dropped joins.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <set>

#include "core/sql/Criterio.h"
#include "core/sql/DatiProva.h"
#include "core/sql/Predicato.h"
#include "core/values/Testo.h"

namespace fenalto::prova {
namespace {

using rc::gen::element;
using rc::gen::inRange;

/// Short texts made of what could break out of quotes, or be taken for a pattern.
rc::Gen<std::string> TestoOstile() {
  return rc::gen::map(rc::gen::container<std::vector<std::string>>(element<std::string>(
                          "'", "\"", "#", "[", "]", ";", "--", "*", "?", "%", "\\", " ", "a", "A",
                          "è", "È", "0", "\n", "?1", "Null", "Or 1=1")),
                      [](const std::vector<std::string>& pezzi) {
                        std::string testo;
                        for (const std::string& p : pezzi) testo += p;
                        return testo;
                      });
}

rc::Gen<Valore> ValoreQualunque() {
  return rc::gen::oneOf(
      rc::gen::map(TestoOstile(), [](std::string t) { return Valore(std::move(t)); }),
      rc::gen::map(rc::gen::arbitrary<std::int64_t>(),
                   [](std::int64_t n) { return Valore(Importo::DaDecimillesimi(n)); }),
      rc::gen::map(inRange<std::int32_t>(-600'000, 2'900'000),
                   [](std::int32_t n) { return Valore(Data::DaGiorni(n)); }),
      rc::gen::map(rc::gen::arbitrary<bool>(), [](bool b) { return Valore(b); }),
      rc::gen::just(Valore()));
}

RC_GTEST_PROP(Criterio, TrovaProprioQuellaRiga, ()) {
  static const BancoProva banco("T: K intero, V testo");
  banco.Motore("DELETE FROM T");
  const auto testi = *rc::gen::container<std::vector<std::string>>(TestoOstile());
  for (std::size_t i = 0; i < testi.size(); ++i) {
    const Risposta scritta = banco.Esegui("INSERT INTO T (K,V) VALUES (" + std::to_string(i) + "," +
                                          sql::LetteraleSql(Valore(testi[i])) + ")");
    RC_ASSERT(scritta.errore.empty());
  }
  for (const std::string& testo : testi) {
    std::string attese;
    for (std::size_t i = 0; i < testi.size(); ++i)
      if (UgualeTesto(testi[i], testo)) attese += std::to_string(i) + "\n";
    const std::string where = sql::Criterio("V", "=", Valore(testo));
    RC_ASSERT(banco.Righe("SELECT K FROM T WHERE 1=1 And " + where + " ORDER BY K") == attese);
  }
}

RC_GTEST_PROP(Criterio, OgniValoreTornaUguale, ()) {
  static const BancoProva banco(
      "T: Nullo testo null, Booleano sino null, Intero intero null, Importo importo null, "
      "Reale reale null, Data data null, Testo testo null");
  static const char* const kColonne[] = {"Nullo", "Booleano", "Intero", "Importo",
                                         "Reale", "Data",     "Testo"};
  const Valore valore = *ValoreQualunque();
  const std::string colonna = kColonne[static_cast<std::size_t>(valore.Tipo())];
  banco.Motore("DELETE FROM T");
  RC_ASSERT(
      banco.Esegui("INSERT INTO T (" + colonna + ") VALUES (" + sql::LetteraleSql(valore) + ")")
          .errore.empty());
  const Risposta letta =
      banco.Esegui("SELECT " + colonna + " FROM T WHERE " + sql::Criterio(colonna, "=", valore));
  RC_ASSERT(letta.errore.empty());
  RC_ASSERT(letta.righe.size() == 1U);
  RC_ASSERT(letta.righe[0][0] == valore);
  RC_ASSERT(letta.righe[0][0].Neutro() == valore.Neutro());
  const Risposta altre =
      banco.Esegui("SELECT " + colonna + " FROM T WHERE " + sql::Criterio(colonna, "<>", valore));
  RC_ASSERT(altre.errore.empty());
  RC_ASSERT(altre.righe.empty());
}

RC_GTEST_PROP(Come, LIntervalloNonToglieRighe, ()) {
  static const BancoProva banco("T: K intero, V testo");
  banco.Motore("DELETE FROM T");
  const auto testi = *rc::gen::container<std::vector<std::string>>(TestoOstile());
  for (std::size_t i = 0; i < testi.size(); ++i) {
    const Risposta scritta = banco.Esegui("INSERT INTO T (K,V) VALUES (" + std::to_string(i) + "," +
                                          sql::LetteraleSql(Valore(testi[i])) + ")");
    RC_ASSERT(scritta.errore.empty());
  }
  const std::string modello = (testi.empty() ? "a" : (*rc::gen::elementOf(testi)).substr(0, 4)) +
                              *element<std::string>("*", "?", "");
  std::string attese;
  for (std::size_t i = 0; i < testi.size(); ++i)
    if (Somiglia(testi[i], modello)) attese += std::to_string(i) + "\n";
  RC_ASSERT(banco.Righe("SELECT K FROM T WHERE V LIKE " + sql::LetteraleSql(Valore(modello)) +
                        " ORDER BY K") == attese);
}

// Searches in memory --------------------------------------------------------------------------

constexpr const char* kRicerca =
    "R: K intero, T testo null, U testo, I intero null, M importo null, N importo, D data null, "
    "B sino null";

std::string Letterale(const std::string& tipo) {
  if (tipo == "T") return *element<std::string>("'a'", "'B'", "'bb'", "''", "'10'", "'à'", "\"A\"");
  if (tipo == "D") return *element<std::string>("#01/01/2024#", "#1/2/2024#", "#12/31/2023#");
  if (tipo == "B") return *element<std::string>("True", "False", "0", "-1");
  return *element<std::string>("0", "1", "-2", "1.5", "2.25", "'1'", "0.00005", "10");
}

/// An expression of a type: T text, M number, D date, B yes-no.
std::string Espressione(const std::string& tipo, int livello) {
  const bool foglia = livello == 0 || *inRange(0, 3) == 0;
  const auto e = [&](const std::string& t) { return Espressione(t, livello - 1); };
  if (tipo == "T") {
    if (foglia) return *inRange(0, 2) == 0 ? Letterale("T") : *element<std::string>("T", "U");
    switch (*inRange(0, 5)) {
      case 0:
        return "Mid(" + e("T") + ",1,2)";
      case 1:
        return "(" + e("T") + " & " + e("M") + ")";
      case 2:
        return "UCase(" + e("T") + ")";
      case 3:
        return "Nz(" + e("T") + ",'z')";
      default:
        return "(" + e("T") + "+T)";
    }
  }
  if (tipo == "D") {
    if (foglia) return *inRange(0, 2) == 0 ? Letterale("D") : "D";
    return "(" + e("D") + "+" + *element<std::string>("1", "I") + ")";
  }
  if (foglia) return *inRange(0, 3) == 0 ? Letterale("M") : *element<std::string>("I", "M", "N");
  switch (*inRange(0, 8)) {
    case 0:
      return "(" + e("M") + "+" + e("M") + ")";
    case 1:
      return "(" + e("M") + "-" + e("M") + ")";
    case 2:
      return "(" + e("M") + "*" + e("M") + ")";
    case 3:
      return "Int(" + e("M") + ")";
    case 4:
      return "Len(" + e("T") + ")";
    case 5:
      return "Nz(" + e("M") + ",0)";
    case 6:
      return "IIf(B," + e("M") + "," + e("M") + ")";
    default:
      return "(" + e("M") + "/2)";
  }
}

std::string Condizione(int livello) {
  if (livello > 0 && *inRange(0, 2) == 0) {
    const std::string a = Condizione(livello - 1);
    switch (*inRange(0, 3)) {
      case 0:
        return "Not (" + a + ")";
      case 1:
        return "(" + a + " And " + Condizione(livello - 1) + ")";
      default:
        return "(" + a + " Or " + Condizione(livello - 1) + ")";
    }
  }
  const std::string tipo = *element<std::string>("T", "M", "D");
  const std::string a = Espressione(tipo, 2);
  const std::string non = *element<std::string>("", "Not ");
  switch (*inRange(0, 7)) {
    case 0:
      return a + " " + non + "Between " + Espressione(tipo, 1) + " And " + Espressione(tipo, 1);
    case 1:
      return a + " " + non + "In (" + Espressione(tipo, 1) + "," + Letterale(tipo) + ")";
    case 2:
      return a + " Is " + non + "Null";
    case 3:
      return Espressione("T", 1) + " " + non + "Like " +
             *element<std::string>("'a*'", "'?'", "'*B*'", "'[a-c]*'", "U & '*'");
    case 4:
      return "B" + *element<std::string>("=", "<>") + Letterale("B");
    default:
      return a + *element<std::string>("=", "<>", "<", "<=", ">", ">=") + Espressione(tipo, 2);
  }
}

void RiempiRicerca(const BancoProva& banco) {
  banco.Motore("DELETE FROM R");
  const int righe = *inRange(1, 8);
  for (int i = 0; i < righe; ++i) {
    const auto o = [](const std::string& valore) { return *inRange(0, 4) == 0 ? "NULL" : valore; };
    const auto numero = [](int da, int a) { return std::to_string(*inRange(da, a)); };
    banco.Motore("INSERT INTO R VALUES (" + std::to_string(i) + "," +
                 o(*element<std::string>("'a'", "'Bb'", "'à'", "''", "'10'")) + "," +
                 *element<std::string>("'a'", "'B'", "''") + "," + o(numero(-3, 4)) + "," +
                 o(numero(-30, 30) + "000") + "," + numero(-3, 3) + "0000," +
                 o(numero(45290, 45295)) + "," + o(numero(0, 2)) + ")");
  }
}

RC_GTEST_PROP(Predicato, DaLeRigheDelMotore, ()) {
  static const BancoProva banco(kRicerca);
  RiempiRicerca(banco);
  const std::string condizione = Condizione(2);
  RC_LOG() << condizione;
  const Risposta motore = banco.Esegui("SELECT * FROM R WHERE " + condizione);
  const Risposta tutte = banco.Esegui("R");
  const auto predicato = sql::Predicato::Leggi(condizione, tutte.istruzione.colonne);
  if (!motore.errore.empty()) {
    // Refused by both, or an error on some row.
    RC_DISCARD("errore");
  }
  RC_ASSERT(predicato.Riuscito());
  std::set<std::int64_t> attese;
  for (const auto& riga : motore.righe) attese.insert(riga[0].Intero());
  for (const auto& riga : tutte.righe)
    RC_ASSERT(predicato.Valore().Vale(riga) == attese.contains(riga[0].Intero()));
}

TEST(Predicato, UguaglianzePerLaRicercaVeloce) {
  const BancoConti banco;
  const Risposta conti = banco.Esegui("SELECT Conto, CFP, ImpoDare, Anno, ID FROM Movimenti");
  const auto leggi = [&](const char* criterio) {
    return sql::Predicato::Leggi(criterio, conti.istruzione.colonne);
  };
  const auto coppie = leggi("conto='C001' And (CFP=\"p\" And 5=impodare)").Valore().Uguaglianze();
  ASSERT_TRUE(coppie.has_value());
  ASSERT_EQ(coppie->size(), 3U);
  EXPECT_EQ(coppie->at(0), (std::pair<std::size_t, Valore>{0, "C001"}));
  EXPECT_EQ(coppie->at(1), (std::pair<std::size_t, Valore>{1, "P"}));
  EXPECT_EQ(coppie->at(2), (std::pair<std::size_t, Valore>{2, Importo::DaUnita(5)}));
  for (const char* altro : {"Conto='a' Or CFP='b'", "Conto>'a'", "Conto=CFP", "Conto Is Null"})
    EXPECT_FALSE(leggi(altro).Valore().Uguaglianze().has_value()) << altro;
  EXPECT_TRUE(leggi("Movimenti.Conto='C001'").Riuscito());
  for (const char* sbagliato : {"", "Conto", "Manca=1", "Conto='a'; x", "Anno='x'",
                                "ID In (SELECT 1)", "EXISTS (SELECT 1)", "Sum(ID)=1", "Conto='"}) {
    EXPECT_FALSE(leggi(sbagliato).Riuscito()) << sbagliato;
  }
}

// Dropped joins -------------------------------------------------------------------------------

constexpr const char* kTeste =
    "A: Anno intero, Num intero, Dt data, Tipo testo, Note testo\n"
    "Chiave A: Anno, Num\n"
    "M: ID intero, Anno intero null, Num intero null, Conto testo, Impo importo, "
    "_Dt data nascosto, _Tipo testo nascosto\n"
    "C: Cod testo, Descr testo\n";

std::string ConSpecchio() {
  return std::string(kTeste) + "Specchio M, A: Anno, Num; Dt=_Dt, Tipo=_Tipo\n";
}

void RiempiTeste(const BancoProva& banco) {
  banco.Motore("DELETE FROM A; DELETE FROM M; DELETE FROM C; INSERT INTO C VALUES ('x','ics')");
  for (int anno = 1; anno <= 2; ++anno) {
    for (int num = 1; num <= 3; ++num) {
      if (*inRange(0, 3) == 0) continue;
      banco.Motore("INSERT INTO A VALUES (" + std::to_string(anno) + "," + std::to_string(num) +
                   "," + std::to_string(*inRange(0, 3)) + "," +
                   *element<std::string>("'a'", "'B'", "''") + ",'n')");
    }
  }
  const int righe = *inRange(0, 12);
  for (int i = 0; i < righe; ++i) {
    const std::string num = *inRange(0, 8) == 0 ? "NULL" : std::to_string(*inRange(1, 5));
    banco.Motore("INSERT INTO M VALUES (" + std::to_string(i) + "," +
                 std::to_string(*inRange(1, 3)) + "," + num + "," +
                 *element<std::string>("'x'", "'Y'", "'y'") + "," +
                 std::to_string(*inRange(-3, 4)) + "0000,NULL,NULL)");
  }
  banco.Motore(
      "UPDATE M SET (_Dt,_Tipo)=(SELECT Dt,Tipo FROM A WHERE A.Anno=M.Anno AND A.Num=M.Num)");
}

RC_GTEST_PROP(EliminaGiunzione, StesseRigheDellaGiunzione, ()) {
  static const BancoProva con(ConSpecchio());
  static const BancoProva senza(kTeste);
  RiempiTeste(con);
  senza.Motore("DELETE FROM A; DELETE FROM M; DELETE FROM C");
  for (const char* tabella : {"A", "M", "C"}) {
    const Risposta righe = con.Esegui(tabella);
    for (const auto& riga : righe.righe) {
      std::string sql;
      for (const Valore& v : riga) sql.append(sql.empty() ? "" : ",").append(sql::LetteraleSql(v));
      RC_ASSERT(senza.Esegui(std::string("INSERT INTO ") + tabella + " VALUES (" + sql + ")")
                    .errore.empty());
    }
  }
  const std::string voci =
      *element<std::string>("M.ID, A.Dt", "M.ID, A.Anno, A.Num, A.Tipo", "M.ID, A.Note",
                            "M.ID, IIf(A.Dt>0,A.Num,-1)", "M.ID, A.Dt, M._NO");
  const std::string tipo = *element<std::string>(" LEFT JOIN ", " INNER JOIN ", " RIGHT JOIN ");
  const std::string chiave = *element<std::string>(
      "M.Anno=A.Anno AND M.Num=A.Num", "(A.Num=M.Num) AND (M.Anno=A.Anno)", "M.Num=A.Num",
      "M.Anno=A.Anno AND M.Num=A.Num AND A.Dt>0", "M.Anno=A.Num AND M.Num=A.Anno");
  std::string da =
      *inRange(0, 2) == 0 ? "M" + tipo + "A ON " + chiave : "A" + tipo + "M ON " + chiave;
  if (*inRange(0, 2) == 0) {
    da = *inRange(0, 2) == 0 ? "(" + da + ") LEFT JOIN C ON M.Conto=C.Cod"
                             : "C LEFT JOIN (" + da + ") ON M.Conto=C.Cod";
  }
  const std::string dove = *element<std::string>(
      "", " WHERE A.Anno=1", " WHERE A.Dt>=#12/31/1899# AND A.Anno=1", " WHERE A.Dt IS NULL",
      " WHERE A.Tipo='b' OR M.ID>3", " WHERE NOT A.Num IN (1,2)", " WHERE A.Num NOT IN (1,2)",
      " WHERE A.Tipo LIKE 'A*'", " WHERE A.Dt BETWEEN 0 AND 1 AND M.Conto='y'",
      " WHERE A.Anno IS NULL", " WHERE Nz(A.Num,0)=0",
      " WHERE EXISTS (SELECT 1 FROM C WHERE C.Cod=A.Tipo)", " WHERE M.Impo>A.Num");
  const std::string testo = *inRange(0, 2) == 0
                                ? "SELECT " + voci + " FROM " + da + dove
                                : "SELECT M.Conto, A.Dt, Sum(M.Impo), Count(A.Num) FROM " + da +
                                      dove + " GROUP BY M.Conto, A.Dt HAVING Count(*)>0";
  RC_LOG() << testo;
  const Risposta a = con.Esegui(testo);
  const Risposta b = senza.Esegui(testo);
  RC_ASSERT(a.errore == b.errore);
  const auto ordinate = [](const Risposta& r) {
    std::multiset<std::string> righe;
    for (const auto& riga : r.righe) {
      std::string testoRiga;
      for (const Valore& v : riga) testoRiga += (v.Nullo() ? "~" : Minuscolo(v.Neutro())) + "|";
      righe.insert(testoRiga);
    }
    return righe;
  };
  RC_ASSERT(ordinate(a) == ordinate(b));
}

TEST(EliminaGiunzione, IlSaldoNonLeggeLeTeste) {
  const BancoConti banco;
  const auto legge = [&](const std::string& testo) {
    const Risposta r = banco.Esegui(testo);
    EXPECT_EQ(r.errore, "") << testo;
    return r.istruzione.sql.find("Articoli") != std::string::npos;
  };
  const std::string saldo =
      "SELECT Movimenti.CFP, Movimenti.Conto, Sum(Movimenti.ImpoDare) AS SommaDiImpoDare, "
      "Sum(Movimenti.ImpoAvere) AS SommaDiImpoAvere FROM Movimenti  LEFT JOIN Articoli ON "
      "(Movimenti.Anno = Articoli.Anno) AND (Movimenti.NumDoc = Articoli.NumDoc) Where 1=1  And "
      "ARTICOLI.Anno=2024 And ARTICOLI.Dt>=#01/01/1990# And ARTICOLI.Dt<=#01/01/2040# And "
      "Movimenti.Causale<>'APE' And Movimenti.Causale<>'APEX' GROUP BY Movimenti.CFP, "
      "Movimenti.Conto ORDER BY Movimenti.CFP, Movimenti.Conto";
  EXPECT_FALSE(legge(saldo));
  EXPECT_EQ(banco.Righe(saldo), "C|C001|122.005|0\nP|70.001|0|122.005\n");
  EXPECT_EQ(banco.Esegui(saldo).istruzione.sql.find("IS NOT NULL"), std::string::npos);
  EXPECT_EQ(banco.Esegui(saldo).istruzione.tabelle,
            (std::vector<std::string>{"Movimenti", "Articoli"}));
  const std::string da =
      " FROM Movimenti m INNER JOIN Articoli a ON m.Anno=a.Anno AND m.NumDoc=a.NumDoc";
  EXPECT_FALSE(legge("SELECT m.ID, a.NumDoc" + da));
  EXPECT_TRUE(legge("SELECT m.ID, a.Descrizione" + da));
  EXPECT_TRUE(legge("SELECT m.ID" + da + " ORDER BY a.Descrizione"));
  EXPECT_TRUE(legge("SELECT m.ID" + da +
                    " WHERE EXISTS (SELECT * FROM Conti WHERE "
                    "Conti.Cod=a.Descrizione)"));
}

}  // namespace
}  // namespace fenalto::prova
