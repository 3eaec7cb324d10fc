#include "core/store/CatalogoArchivio.h"

#include <sqlite3.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "core/store/ErroriMotore.h"
#include "core/store/engine/sqlite/DialettoSqlite.h"
#include "core/values/Testo.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

std::string Colonna(sqlite3_stmt* istruzione, int i) {
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
      {"INTEGER", Tipo::Intero}, {"IMPORTO", Tipo::Importo}, {"DATA", Tipo::Data},
      {"SINO", Tipo::Booleano},  {"REALE", Tipo::Reale},     {"TEXT", Tipo::Testo}};
  const auto trovato = kTipi.find(Maiuscolo(dichiarato));
  return trovato != kTipi.end() ? trovato->second : Tipo::Testo;
}

/// FROM of every query below: the tables that the catalogue shows.
std::string TabelleVisibili(const std::string& schema) {
  return " FROM " + Virgolettato(schema) +
         ".sqlite_schema m, PEZZO WHERE m.type = 'table' AND substr(m.name, 1, 1) <> '_' AND "
         "substr(m.name, 1, 7) <> 'sqlite_'";
}

std::string Interroga(const std::string& colonne, const std::string& schema,
                      const std::string& pezzo, const std::string& resto) {
  std::string da = TabelleVisibili(schema);
  da.replace(da.find("PEZZO"), 5, pezzo);
  return "SELECT " + colonne + da + resto;
}

/// The name as an SQL text literal.
std::string ComeTesto(const std::string& nome) {
  std::string fuori = "'";
  for (const char c : nome) {
    if (c == '\'') fuori += '\'';
    fuori += c;
  }
  return fuori + "'";
}

std::vector<std::string> Spezza(const std::string& elenco) {
  std::vector<std::string> parti;
  std::istringstream flusso(elenco);
  for (std::string parte; std::getline(flusso, parte, ',');) parti.emplace_back(Rifila(parte));
  return parti;
}

}  // namespace

std::string Virgolettato(std::string_view nome) {
  std::string fuori = "\"";
  for (const char c : nome) {
    if (c == '"') fuori += '"';
    fuori += c;
  }
  return fuori + "\"";
}

std::string TipoDichiarato(Tipo tipo) {
  switch (tipo) {
    case Tipo::Booleano:
      return "SINO";
    case Tipo::Intero:
      return "INTEGER";
    case Tipo::Importo:
      return "IMPORTO";
    case Tipo::Reale:
      return "REALE";
    case Tipo::Data:
      return "DATA";
    default:
      return std::string("TEXT COLLATE ") + engine::sqlite::kCollazione;
  }
}

VisteArchivio LeggiViste(const fs::path& cartella) {
  VisteArchivio viste;
  std::error_code errore;
  for (const auto& voce : fs::directory_iterator(cartella, errore)) {
    if (voce.path().extension() != ".sql") continue;
    std::ifstream flusso(voce.path());
    std::string testo;
    for (std::string riga; std::getline(flusso, riga);) {
      if (Rifila(riga).starts_with("--")) continue;
      testo += riga + "\n";
    }
    const std::string nome = voce.path().stem().string();
    viste[SenzaMaiuscole(nome)] = {nome, std::string(Rifila(testo))};
  }
  return viste;
}

void CatalogoArchivio::Leggi(sqlite3* connessione, const std::string& schema,
                             const fs::path& file) {
  tabelle_.clear();
  LeggiColonne(connessione, schema, file);
  LeggiChiavi(connessione, schema, file);
  LeggiSpecchi(connessione, schema, file);
}

void CatalogoArchivio::LeggiColonne(sqlite3* connessione, const std::string& schema,
                                    const fs::path& file) {
  const std::string sql = Interroga(
      "m.name, c.name, c.type, c.\"notnull\", c.dflt_value, c.pk", schema,
      "pragma_table_xinfo(m.name, " + ComeTesto(schema) + ") c", " ORDER BY m.rowid, c.cid");
  PerOgniRiga(connessione, sql, file, [&](sqlite3_stmt* riga) {
    const std::string nome = Colonna(riga, 0);
    TabellaArchivio& tabella = tabelle_[SenzaMaiuscole(nome)];
    tabella.vista.nome = nome;
    tabella.schema = schema;
    tabella.vista.nomeMotore = Virgolettato(schema) + "." + Virgolettato(nome);
    sql::ColonnaCatalogo colonna;
    colonna.nome = Colonna(riga, 1);
    const std::string tipo = Colonna(riga, 2);
    colonna.tipo = TipoDi(tipo);
    colonna.nascosta = colonna.nome.starts_with('_');
    // A lone primary key declared INTEGER is the engine's row number; LeggiChiavi takes the mark
    // off again where the key turns out to have more columns.
    colonna.contatore = sqlite3_column_int(riga, 5) == 1 && Maiuscolo(tipo) == "INTEGER";
    colonna.ammetteNull = sqlite3_column_int(riga, 3) == 0 && !colonna.contatore;
    if (sqlite3_column_int(riga, 5) > 1) {
      for (sql::ColonnaCatalogo& altra : tabella.vista.colonne) altra.contatore = false;
    }
    tabella.vista.colonne.push_back(std::move(colonna));
    tabella.predefiniti.push_back(Colonna(riga, 4));
  });
}

void CatalogoArchivio::LeggiChiavi(sqlite3* connessione, const std::string& schema,
                                   const fs::path& file) {
  const std::string testoSchema = ComeTesto(schema);
  const std::string sql =
      Interroga("m.name, l.name, l.origin, i.name", schema,
                "pragma_index_list(m.name, " + testoSchema + ") l, pragma_index_info(l.name, " +
                    testoSchema + ") i",
                " AND l.\"unique\" AND NOT l.partial"
                " ORDER BY m.rowid, l.origin <> 'pk', l.origin <> 'u', l.seq DESC, i.seqno");
  std::string tabellaUltima;
  std::string indiceScelto;
  PerOgniRiga(connessione, sql, file, [&](sqlite3_stmt* riga) {
    const std::string nome = Colonna(riga, 0);
    sql::TabellaCatalogo& tabella = tabelle_[SenzaMaiuscole(nome)].vista;
    if (nome != tabellaUltima) {
      tabellaUltima = nome;
      indiceScelto = Colonna(riga, 1);
    }
    if (Colonna(riga, 1) != indiceScelto) return;
    tabella.chiave.push_back(Colonna(riga, 3));
    if (Colonna(riga, 2) == "pk") {
      // A primary key with an index of its own isn't the row number.
      for (sql::ColonnaCatalogo& colonna : tabella.colonne) colonna.contatore = false;
    }
  });
  for (auto& [chiave, tabella] : tabelle_) {
    if (!tabella.vista.chiave.empty()) continue;
    for (const sql::ColonnaCatalogo& colonna : tabella.vista.colonne) {
      if (colonna.contatore) tabella.vista.chiave = {colonna.nome};
    }
  }
}

void CatalogoArchivio::LeggiSpecchi(sqlite3* connessione, const std::string& schema,
                                    const fs::path& file) {
  bool presente = false;
  PerOgniRiga(connessione,
              "SELECT 1 FROM " + Virgolettato(schema) +
                  ".sqlite_schema WHERE type = 'table' AND name = '_specchi'",
              file, [&](sqlite3_stmt*) { presente = true; });
  if (!presente) return;
  PerOgniRiga(connessione,
              "SELECT tabella, altra, chiave, colonna, specchio FROM " + Virgolettato(schema) +
                  "._specchi ORDER BY rowid",
              file, [&](sqlite3_stmt* riga) {
                const auto trovata = tabelle_.find(SenzaMaiuscole(Colonna(riga, 0)));
                if (trovata == tabelle_.end()) return;
                auto& specchi = trovata->second.vista.specchi;
                const std::string altra = Colonna(riga, 1);
                auto stesso = std::ranges::find(specchi, altra, &sql::Specchio::tabella);
                if (stesso == specchi.end()) {
                  specchi.push_back({altra, Spezza(Colonna(riga, 2)), {}});
                  stesso = std::prev(specchi.end());
                }
                stesso->colonne.emplace_back(Colonna(riga, 3), Colonna(riga, 4));
              });
}

void CatalogoArchivio::Collega(const TabellaArchivio& tabella) {
  TabellaArchivio copia = tabella;
  copia.collegata = true;
  // Here the mirror's other table may be another one of that name.
  copia.vista.specchi.clear();
  tabelle_[SenzaMaiuscole(tabella.vista.nome)] = std::move(copia);
}

const sql::TabellaCatalogo* CatalogoArchivio::Tabella(std::string_view nome) const {
  const TabellaArchivio* tabella = Completa(nome);
  return tabella != nullptr ? &tabella->vista : nullptr;
}

const TabellaArchivio* CatalogoArchivio::Completa(std::string_view nome) const {
  const auto trovata = tabelle_.find(SenzaMaiuscole(nome));
  return trovata != tabelle_.end() ? &trovata->second : nullptr;
}

const sql::VistaCatalogo* CatalogoArchivio::Vista(std::string_view nome) const {
  if (viste_ == nullptr) return nullptr;
  const auto trovata = viste_->find(SenzaMaiuscole(nome));
  return trovata != viste_->end() ? &trovata->second : nullptr;
}

bool CatalogoArchivio::OgniSpecchioDi(std::string_view altra,
                                      const std::function<bool(const std::string&)>& prova) const {
  for (const auto& [chiave, tabella] : tabelle_) {
    for (const sql::Specchio& specchio : tabella.vista.specchi) {
      if (UgualeTesto(specchio.tabella, altra) && prova(tabella.vista.nomeMotore)) return true;
    }
  }
  return false;
}

}  // namespace fenalto
