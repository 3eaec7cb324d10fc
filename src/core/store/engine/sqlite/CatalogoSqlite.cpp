#include <sqlite3.h>

#include <functional>
#include <map>
#include <unordered_map>

#include "core/store/engine/sqlite/ConnessioneSqlite.h"
#include "core/store/engine/sqlite/DialettoSqlite.h"
#include "core/store/engine/sqlite/ErroriSqlite.h"
#include "core/values/Testo.h"

namespace fenalto::engine::sqlite {
namespace {

namespace fs = std::filesystem;

std::string TestoColonna(sqlite3_stmt* istruzione, int i) {
  const auto* testo = reinterpret_cast<const char*>(sqlite3_column_text(istruzione, i));
  return testo != nullptr ? testo : "";
}

/// Runs a catalogue query and hands each row to `riga`.
void PerOgniRiga(sqlite3* connessione, const std::string& sql, const fs::path& file,
                 const std::function<void(sqlite3_stmt*)>& riga) {
  sqlite3_stmt* nuda = nullptr;
  int rc = sqlite3_prepare_v2(connessione, sql.c_str(), -1, &nuda, nullptr);
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> istruzione(nuda, sqlite3_finalize);
  if (rc == SQLITE_OK) {
    while ((rc = sqlite3_step(nuda)) == SQLITE_ROW) riga(nuda);
  }
  if (rc != SQLITE_DONE) throw ErroreMotore(connessione, rc, file, sql);
}

Tipo TipoDi(const std::string& dichiarato) {
  static const std::map<std::string, Tipo> kTipi = {
      {"INTEGER", Tipo::Intero},  {"IMPORTO", Tipo::Importo}, {"DATA", Tipo::Data},
      {"SINO", Tipo::Booleano},   {"REALE", Tipo::Reale},     {"TEXT", Tipo::Testo},
      {"TEXT CIFRE", Tipo::Testo}};
  const auto trovato = kTipi.find(Maiuscolo(dichiarato));
  return trovato != kTipi.end() ? trovato->second : Tipo::Testo;
}

/// FROM of every query below: the tables that the catalogue shows.
std::string TabelleVisibili(const std::string& schema) {
  return " FROM " + DialettoSqlite().Nome(schema) +
         ".sqlite_schema m, PEZZO WHERE m.type = 'table' AND substr(m.name, 1, 1) <> '_' AND "
         "substr(m.name, 1, 7) <> 'sqlite_'";
}

std::string Interroga(const std::string& colonne, const std::string& schema,
                      const std::string& pezzo, const std::string& resto) {
  std::string da = TabelleVisibili(schema);
  da.replace(da.find("PEZZO"), 5, pezzo);
  return "SELECT " + colonne + da + resto;
}

/// Tables as they are read, in the engine's order.
struct TabelleLette {
  std::vector<Tabella> tabelle;
  std::unordered_map<std::string, std::size_t> perNome;

  Tabella& operator[](const std::string& nome) {
    const auto [posto, nuova] = perNome.try_emplace(nome, tabelle.size());
    if (nuova) tabelle.emplace_back().vista.nome = nome;
    return tabelle[posto->second];
  }
};

void LeggiColonne(sqlite3* connessione, const std::string& schema, const fs::path& file,
                  TabelleLette& lette) {
  const std::string sql =
      Interroga("m.name, c.name, c.type, c.\"notnull\", c.dflt_value, c.pk", schema,
                "pragma_table_xinfo(m.name, " + DialettoSqlite().Testo(schema) + ") c",
                " ORDER BY m.rowid, c.cid");
  PerOgniRiga(connessione, sql, file, [&](sqlite3_stmt* riga) {
    const std::string nome = TestoColonna(riga, 0);
    Tabella& tabella = lette[nome];
    tabella.vista.nomeMotore = DialettoSqlite().Nome(schema) + "." + DialettoSqlite().Nome(nome);
    sql::ColonnaCatalogo colonna;
    colonna.nome = TestoColonna(riga, 1);
    const std::string tipo = TestoColonna(riga, 2);
    colonna.tipo = TipoDi(tipo);
    colonna.nascosta = colonna.nome.starts_with('_');
    colonna.cifre = Maiuscolo(tipo) == "TEXT CIFRE";
    // A lone primary key declared INTEGER is the engine's row number; LeggiChiavi takes the mark
    // off again where the key turns out to have more columns.
    colonna.contatore = sqlite3_column_int(riga, 5) == 1 && Maiuscolo(tipo) == "INTEGER";
    colonna.ammetteNull = sqlite3_column_int(riga, 3) == 0 && !colonna.contatore;
    if (sqlite3_column_int(riga, 5) > 1) {
      for (sql::ColonnaCatalogo& altra : tabella.vista.colonne) altra.contatore = false;
    }
    tabella.vista.colonne.push_back(std::move(colonna));
    tabella.predefiniti.push_back(TestoColonna(riga, 4));
  });
}

void LeggiChiavi(sqlite3* connessione, const std::string& schema, const fs::path& file,
                 TabelleLette& lette) {
  const std::string testoSchema = DialettoSqlite().Testo(schema);
  const std::string sql =
      Interroga("m.name, l.name, l.origin, i.name", schema,
                "pragma_index_list(m.name, " + testoSchema + ") l, pragma_index_info(l.name, " +
                    testoSchema + ") i",
                " AND l.\"unique\" AND NOT l.partial"
                " ORDER BY m.rowid, l.origin <> 'pk', l.origin <> 'u', l.seq DESC, i.seqno");
  std::string tabellaUltima;
  std::string indiceScelto;
  PerOgniRiga(connessione, sql, file, [&](sqlite3_stmt* riga) {
    const std::string nome = TestoColonna(riga, 0);
    sql::TabellaCatalogo& tabella = lette[nome].vista;
    if (nome != tabellaUltima) {
      tabellaUltima = nome;
      indiceScelto = TestoColonna(riga, 1);
    }
    if (TestoColonna(riga, 1) != indiceScelto) return;
    tabella.chiave.push_back(TestoColonna(riga, 3));
    if (TestoColonna(riga, 2) == "pk") {
      // A primary key with an index of its own isn't the row number.
      for (sql::ColonnaCatalogo& colonna : tabella.colonne) colonna.contatore = false;
    }
  });
  for (Tabella& tabella : lette.tabelle) {
    if (!tabella.vista.chiave.empty()) continue;
    for (const sql::ColonnaCatalogo& colonna : tabella.vista.colonne) {
      if (colonna.contatore) tabella.vista.chiave = {colonna.nome};
    }
  }
}

}  // namespace

std::vector<Tabella> LeggiTabelle(sqlite3* connessione, const std::string& schema,
                                  const fs::path& file) {
  TabelleLette lette;
  LeggiColonne(connessione, schema, file, lette);
  LeggiChiavi(connessione, schema, file, lette);
  return std::move(lette.tabelle);
}

}  // namespace fenalto::engine::sqlite
