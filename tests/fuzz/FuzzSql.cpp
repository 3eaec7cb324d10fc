// Any bytes as SQL text: shape, translation and search conditions either work or refuse, and what
// is translated can be prepared by the engine.
#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "Pretendi.h"
#include "core/sql/Predicato.h"
#include "core/sql/Traduttore.h"
#include "core/store/engine/sqlite/DialettoSqlite.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "core/values/Testo.h"

namespace {

using namespace fenalto;

void Pretendi(bool vero, const std::string& cosa) {
  if (vero) return;
  std::fprintf(stderr, "%s\n", cosa.c_str());
  std::abort();
}

class CatalogoPiccolo : public sql::Catalogo {
 public:
  CatalogoPiccolo() {
    tabelle_[0].nome = "H";
    tabelle_[0].nomeMotore = "\"main\".\"H\"";
    tabelle_[0].colonne = {{"K", Tipo::Intero}, {"D", Tipo::Data}, {"T", Tipo::Testo}};
    tabelle_[0].chiave = {"K"};
    tabelle_[1].nome = "R";
    tabelle_[1].nomeMotore = "\"main\".\"R\"";
    tabelle_[1].colonne = {{"ID", Tipo::Intero, true, true},
                           {"K", Tipo::Intero},
                           {"M", Tipo::Importo},
                           {"S", Tipo::Reale, true},
                           {"B", Tipo::Booleano},
                           {"T", Tipo::Testo, true},
                           {"_D", Tipo::Data, true, false, true}};
    tabelle_[1].specchi = {{"H", {"K"}, {{"D", "_D"}}}};
    viste_[0] = {"V", "SELECT R.*, H.D FROM R LEFT JOIN H ON R.K=H.K"};
    viste_[1] = {"W", "SELECT K, T AS [un nome] FROM H WHERE T LIKE 'a*' ORDER BY D"};
  }
  [[nodiscard]] const sql::TabellaCatalogo* Tabella(std::string_view nome) const override {
    for (const sql::TabellaCatalogo& t : tabelle_)
      if (UgualeTesto(t.nome, nome)) return &t;
    return nullptr;
  }
  [[nodiscard]] const sql::VistaCatalogo* Vista(std::string_view nome) const override {
    for (const sql::VistaCatalogo& v : viste_)
      if (UgualeTesto(v.nome, nome)) return &v;
    return nullptr;
  }

 private:
  std::array<sql::TabellaCatalogo, 2> tabelle_;
  std::array<sql::VistaCatalogo, 2> viste_;
};

sqlite3* Apri() {
  sqlite3* connessione = nullptr;
  Pretendi(sqlite3_open(":memory:", &connessione) == SQLITE_OK, "apertura");
  engine::sqlite::RegistraMotore(connessione);
  const char* schema =
      "CREATE TABLE H (K INTEGER, D INTEGER, T TEXT COLLATE FENALTO);"
      "CREATE TABLE R (ID INTEGER PRIMARY KEY, K INTEGER, M INTEGER, S REAL, B INTEGER,"
      " T TEXT COLLATE FENALTO, _D INTEGER)";
  Pretendi(sqlite3_exec(connessione, schema, nullptr, nullptr, nullptr) == SQLITE_OK, "schema");
  return connessione;
}

/// The engine's own bounds on size and depth are no fault of the translation.
bool ELimite(std::string_view errore) {
  for (const char* limite : {"stack overflow", "too large", "too many", "at most", "too big"})
    if (errore.find(limite) != std::string_view::npos) return true;
  return false;
}

void Prova(std::string_view testo) {
  static const CatalogoPiccolo catalogo;
  static sqlite3* const connessione = Apri();
  const auto forma = sql::FormaDi(testo);
  const auto tradotta = sql::Traduci(testo, catalogo, engine::sqlite::DialettoSqlite());
  if (!tradotta) {
    Pretendi(!tradotta.Errore().motivo.empty(), "rifiuto senza motivo");
    Pretendi(tradotta.Errore().posizione <= testo.size(), "posizione fuori dal testo");
    static_cast<void>(tradotta.Errore().Messaggio(testo));
    return;
  }
  Pretendi(forma.Riuscito(), "tradotta ma senza forma");
  const sql::Istruzione& i = tradotta.Valore();
  for (const sql::ParametroSql& p : i.parametri) {
    Pretendi(p.letterale < forma.Valore().letterali.size(), "letterale che non c'è");
    static_cast<void>(sql::ValoreLegato(forma.Valore().letterali[p.letterale], p.legame));
  }
  sqlite3_stmt* istruzione = nullptr;
  const int esito = sqlite3_prepare_v2(connessione, i.sql.c_str(), -1, &istruzione, nullptr);
  Pretendi(esito == SQLITE_OK || ELimite(sqlite3_errmsg(connessione)),
           i.sql + "\n" + sqlite3_errmsg(connessione));
  if (esito == SQLITE_OK) {
    const std::size_t colonne = i.colonne.size() + (i.tabellaBase.empty() ? 0 : 1);
    Pretendi(sqlite3_column_count(istruzione) == static_cast<int>(colonne), i.sql);
    Pretendi(sqlite3_bind_parameter_count(istruzione) == static_cast<int>(i.parametri.size()),
             i.sql);
  }
  sqlite3_finalize(istruzione);
}

void ProvaPredicato(std::string_view testo) {
  static const std::array<sql::ColonnaUscita, 4> kColonne{{{"T", Tipo::Testo, "R", "T"},
                                                           {"K", Tipo::Intero, "R", "K"},
                                                           {"M", Tipo::Importo, "", ""},
                                                           {"D", Tipo::Data, "H", "D"}}};
  static const std::array<Valore, 4> kRiga{Valore("l'Adda"), Valore(3),
                                           Valore(Importo::DaDecimillesimi(12'345)), Valore()};
  const auto predicato = sql::Predicato::Leggi(testo, kColonne);
  if (predicato) static_cast<void>(predicato.Valore().Vale(kRiga));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
  const std::string_view testo = Testo(dati, quanti);
  Prova(testo);
  ProvaPredicato(testo);
  return 0;
}
