// What the emitter writes for an engine that writes otherwise than the embedded one.
#include <gtest/gtest.h>

#include "core/sql/CatalogoProva.h"
#include "core/sql/Dialetto.h"

namespace fenalto::prova {
namespace {

/// A server: truth is a type of its own, Null sorts last, parameters and the row's identity have
/// other names.
class DialettoServer : public sql::Dialetto {
 public:
  [[nodiscard]] std::string Nome(std::string_view nome) const override {
    return "[" + std::string(nome) + "]";
  }
  [[nodiscard]] std::string_view Riga() const override { return "riga_"; }
  void Parametro(std::string& sql, std::size_t numero) const override {
    sql += "$" + std::to_string(numero);
  }
  [[nodiscard]] std::string Testo(std::string_view testo) const override {
    return "T'" + std::string(testo) + "'";
  }
  [[nodiscard]] std::string Reale(const std::string& cifre) const override { return cifre + "::r"; }
  [[nodiscard]] std::string_view Collazione() const override { return " COLL"; }
  [[nodiscard]] std::string_view Verso(bool discendente) const override {
    return discendente ? " DESC LAST" : " FIRST";
  }
  [[nodiscard]] Scrittura Costante() const override { return {"const(", "", ")"}; }
  [[nodiscard]] std::string Primi(std::int64_t righe) const override {
    return " FETCH " + std::to_string(righe);
  }
  [[nodiscard]] Scrittura Condizione() const override { return {"vero(", "", ")"}; }
  [[nodiscard]] Scrittura ValoreLogico() const override { return {"int(", "", ")"}; }
  [[nodiscard]] std::optional<Scrittura> Operatore(sql::Fn funzione) const override {
    if (funzione == sql::Fn::SeNullo) return Scrittura{"coalesce(", ",", ")"};
    if (funzione == sql::Fn::Unisci) return Scrittura{"concat(", ",", ")"};
    return std::nullopt;
  }
  [[nodiscard]] Scrittura Aggregato(sql::Aggregazione, Tipo) const override {
    return {"agg(", "", ")"};
  }
  [[nodiscard]] std::size_t LunghezzaMassima() const override { return 300; }
  [[nodiscard]] std::size_t ParametriMassimi() const override { return 3; }
};

constexpr const char* kCatalogoBreve = "Conti: Cod testo, Nome testo, Chiuso sino, Saldo importo\n";

std::string Sql(const std::string& testo) {
  const CatalogoProva catalogo(kCatalogoBreve);
  const auto tradotta = sql::Traduci(testo, catalogo, DialettoServer());
  return tradotta ? tradotta.Valore().sql : "ERRORE: " + tradotta.Errore().motivo;
}

TEST(AltroMotore, WhatDiffersIsAskedOfTheDialect) {
  const std::string conti = CatalogoProva(kCatalogoBreve).Tabella("Conti")->nomeMotore;
  const std::pair<std::string, std::string> casi[] = {
      {"SELECT TOP 5 Cod FROM Conti WHERE Chiuso AND Saldo>1 ORDER BY Cod, Nome DESC",
       "SELECT t1.[Cod], t1.riga_ FROM " + conti +
           " AS t1 WHERE (vero(t1.[Chiuso]) AND (t1.[Saldo]>$1)) ORDER BY 1 FIRST, t1.[Nome] DESC "
           "LAST FETCH 5"},
      {"SELECT Saldo>1 AS Alto, IIf(Chiuso,'a','b') AS C FROM Conti WHERE NOT Chiuso",
       "SELECT int((t1.[Saldo]>$1)), CASE WHEN vero(t1.[Chiuso]) THEN $2 ELSE $3 END COLL, "
       "t1.riga_ "
       "FROM " +
           conti + " AS t1 WHERE (NOT vero(t1.[Chiuso]))"},
      {"SELECT Cod & Nome AS N FROM Conti",
       "SELECT concat(coalesce(t1.[Cod],T''),coalesce(t1.[Nome],T'')) COLL, t1.riga_ FROM " +
           conti + " AS t1"},
      {"SELECT Sum(Saldo) AS S FROM Conti GROUP BY Chiuso HAVING Sum(Saldo)>1",
       "SELECT agg(t1.[Saldo]) FROM " + conti +
           " AS t1 GROUP BY t1.[Chiuso] HAVING (agg(t1.[Saldo])>$1)"},
      {"UPDATE Conti SET Nome='x' WHERE Cod='1'",
       "UPDATE " + conti + " AS t1 SET [Nome]=$1 WHERE (t1.[Cod]=$2)"},
      {"SELECT Cod FROM Conti WHERE Cod IN ('1','2','3','4')", "ERRORE: troppi valori nel testo"},
  };
  for (const auto& [testo, atteso] : casi) EXPECT_EQ(Sql(testo), atteso) << testo;
  EXPECT_EQ(Sql("SELECT Cod FROM Conti WHERE " + std::string("Chiuso AND ").append(300, ' ') +
                "Chiuso AND Chiuso AND Chiuso AND Chiuso AND Chiuso AND Chiuso AND Chiuso AND "
                "Chiuso AND Chiuso AND Chiuso AND Chiuso AND Chiuso"),
            "ERRORE: istruzione troppo lunga");
}

}  // namespace
}  // namespace fenalto::prova
