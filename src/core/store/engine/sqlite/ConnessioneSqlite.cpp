#include "core/store/engine/sqlite/ConnessioneSqlite.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <thread>

#include "core/store/engine/sqlite/DialettoSqlite.h"
#include "core/store/engine/sqlite/ErroriSqlite.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "core/store/engine/sqlite/IstruzioneSqlite.h"
#include "core/store/engine/sqlite/RestiFile.h"

namespace fenalto::engine::sqlite {

namespace fs = std::filesystem;

// --- Waiting ------------------------------------------------------------------------------------

void AttesaArchivio::Installa(sqlite3* connessione) {
  sqlite3_busy_handler(connessione, Aspetta, this);
}

int AttesaArchivio::Aspetta(void* io, int volta) {
  auto& attesa = *static_cast<AttesaArchivio*>(io);
  const auto ora = std::chrono::steady_clock::now();
  if (volta == 0) attesa.inizio_ = ora;
  if (ora - attesa.inizio_ >= attesa.limite_) return 0;
  // Uneven, so that two stations don't keep meeting: xorshift is enough for that.
  attesa.seme_ ^= attesa.seme_ << 13U;
  attesa.seme_ ^= attesa.seme_ >> 17U;
  attesa.seme_ ^= attesa.seme_ << 5U;
  const auto massimo = static_cast<std::uint32_t>(std::min(2 + volta * 2, 25));
  std::this_thread::sleep_for(std::chrono::milliseconds(1 + attesa.seme_ % massimo));
  return 1;
}

// --- Plain calls --------------------------------------------------------------------------------

sqlite3* ApriConnessione(const fs::path& file, const std::string& vfs, bool crea) {
  sqlite3* connessione = nullptr;
  // One thread uses a connection, so the engine needn't lock at every column read.
  const int modo = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (crea ? SQLITE_OPEN_CREATE : 0);
  const int rc =
      sqlite3_open_v2(file.c_str(), &connessione, modo, vfs.empty() ? nullptr : vfs.c_str());
  if (rc != SQLITE_OK) {
    const ErroreArchivio errore = ErroreMotore(connessione, rc, file);
    sqlite3_close(connessione);
    throw errore;
  }
  sqlite3_extended_result_codes(connessione, 1);
  try {
    RegistraMotore(connessione);
  } catch (...) {
    sqlite3_close(connessione);
    throw;
  }
  return connessione;
}

void EseguiMotore(sqlite3* connessione, const std::string& sql, const fs::path& file) {
  const int rc = sqlite3_exec(connessione, sql.c_str(), nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) throw ErroreMotore(connessione, rc, file, sql);
}

std::string TestoMotore(sqlite3* connessione, const std::string& sql, const fs::path& file) {
  sqlite3_stmt* istruzione = nullptr;
  int rc = sqlite3_prepare_v2(connessione, sql.c_str(), -1, &istruzione, nullptr);
  std::string valore;
  if (rc == SQLITE_OK) {
    rc = sqlite3_step(istruzione);
    const auto* testo = rc == SQLITE_ROW ? sqlite3_column_text(istruzione, 0) : nullptr;
    if (testo != nullptr) valore = reinterpret_cast<const char*>(testo);
  }
  const int fine = sqlite3_finalize(istruzione);
  if (rc == SQLITE_OK || rc == SQLITE_ROW || rc == SQLITE_DONE) rc = fine;
  if (rc != SQLITE_OK) throw ErroreMotore(connessione, rc, file, sql);
  return valore;
}

fs::path Giornale(const fs::path& archivio) {
  return archivio.string() + "-journal";
}

// --- The connection -----------------------------------------------------------------------------

ConnessioneSqlite::ConnessioneSqlite(const std::vector<Base>& basi, const Opzioni& opzioni,
                                     bool crea)
    : attesa_(opzioni.attesa) {
  const Base& prima = basi.front();
  connessione_ = ApriConnessione(prima.luogo, opzioni.vfs, crea);
  try {
    attesa_.Installa(connessione_);
    // Read now: attaching reads every schema, and would lay this one's faults at the other's door.
    TestoMotore(connessione_, "SELECT count(*) FROM main.sqlite_schema", prima.luogo);
    aperte_.push_back({prima, "main", ""});
    for (auto base = basi.begin() + 1; base != basi.end(); ++base) {
      const int rc = AttaccaFile(*base);
      if (rc != SQLITE_DONE) throw ErroreMotore(connessione_, rc, base->luogo);
    }
    // Sorts spill to temporary files past the cache, so that a report over all movements stays
    // small.
    for (const Aperta& aperta : aperte_) {
      const std::string pragma = "PRAGMA " + DialettoSqlite().Nome(aperta.schema) + ".";
      const bool laPrima = &aperta == aperte_.data();
      for (const char* regola : {"journal_mode = TRUNCATE", "synchronous = FULL",
                                 laPrima ? "cache_size = -12000" : "cache_size = -8000"}) {
        EseguiMotore(connessione_, pragma + regola, aperta.base.luogo);
      }
    }
    EseguiMotore(connessione_, "PRAGMA foreign_keys = OFF", prima.luogo);
  } catch (...) {
    sqlite3_close_v2(connessione_);
    throw;
  }
}

ConnessioneSqlite::~ConnessioneSqlite() {
  // Statements that outlive it keep it until they go.
  sqlite3_busy_handler(connessione_, nullptr, nullptr);
  sqlite3_close_v2(connessione_);
}

ConnessioneSqlite::Aperta& ConnessioneSqlite::Trova(const std::string& base) {
  const auto trovata =
      std::ranges::find_if(aperte_, [&](const Aperta& a) { return a.base.nome == base; });
  return trovata != aperte_.end() ? *trovata : aperte_.front();
}

int ConnessioneSqlite::AttaccaFile(const Base& base) {
  sqlite3_stmt* attacca = nullptr;
  const std::string sql = "ATTACH ?1 AS " + DialettoSqlite().Nome(base.nome);
  int rc = sqlite3_prepare_v2(connessione_, sql.c_str(), -1, &attacca, nullptr);
  if (rc == SQLITE_OK) {
    sqlite3_bind_text(attacca, 1, base.luogo.c_str(), -1, SQLITE_TRANSIENT);
    rc = sqlite3_step(attacca);
  }
  sqlite3_finalize(attacca);
  if (rc == SQLITE_DONE) aperte_.push_back({base, base.nome, ""});
  return rc;
}

std::unique_ptr<Istruzione> ConnessioneSqlite::Prepara(const std::string& base,
                                                       std::string_view sql) {
  return std::make_unique<IstruzioneSqlite>(connessione_, sql, Trova(base).base.luogo);
}

std::vector<Tabella> ConnessioneSqlite::Tabelle(const std::string& base) {
  const Aperta& aperta = Trova(base);
  std::vector<Tabella> tabelle = LeggiTabelle(connessione_, aperta.schema, aperta.base.luogo);
  for (Tabella& tabella : tabelle) tabella.base = base;
  return tabelle;
}

bool ConnessioneSqlite::HaTabella(const std::string& base, std::string_view tabella) {
  const Aperta& aperta = Trova(base);
  const std::string sql =
      "SELECT 1 FROM " + DialettoSqlite().Nome(aperta.schema) +
      ".sqlite_schema WHERE type = 'table' AND name = " + DialettoSqlite().Testo(tabella);
  return !TestoMotore(connessione_, sql, aperta.base.luogo).empty();
}

std::string ConnessioneSqlite::NomeTabella(const std::string& base, std::string_view tabella) {
  return DialettoSqlite().Nome(Trova(base).schema) + "." + DialettoSqlite().Nome(tabella);
}

StatoBase ConnessioneSqlite::Stato(const std::string& base) {
  const Aperta& aperta = Trova(base);
  const auto numero = [&](const char* quale) {
    const std::string sql = "PRAGMA " + DialettoSqlite().Nome(aperta.schema) + "." + quale;
    return std::atoi(TestoMotore(connessione_, sql, aperta.base.luogo).c_str());
  };
  return {numero("application_id") == kIdApplicazione,
          sqlite3_db_readonly(connessione_, aperta.schema.c_str()) == 1, numero("user_version")};
}

void ConnessioneSqlite::EseguiPasso(const std::string& base, const std::string& testo) {
  const int rc = sqlite3_exec(connessione_, testo.c_str(), nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) throw ErroreMotore(connessione_, rc, Trova(base).base.luogo);
}

void ConnessioneSqlite::SegnaPasso(const std::string& base, int passo) {
  const std::string pragma = "PRAGMA " + DialettoSqlite().Nome(Trova(base).schema) + ".";
  EseguiPasso(base, pragma + "user_version = " + std::to_string(passo) + ";" + pragma +
                        "application_id = " + std::to_string(kIdApplicazione));
}

// --- Transaction --------------------------------------------------------------------------------

void ConnessioneSqlite::Esegui(const std::string& sql) {
  const int rc = sqlite3_exec(connessione_, sql.c_str(), nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) throw ErroreMotore(connessione_, rc, aperte_.front().base.luogo);
}

void ConnessioneSqlite::Inizia(bool riserva) {
  // IMMEDIATE takes the write lock of every attached database. But each locked database counts as
  // written at the commit, and two of them cost a file of their own and three more syncs: what
  // writes one alone locks just that.
  Esegui(riserva ? "BEGIN IMMEDIATE" : "BEGIN");
}

void ConnessioneSqlite::Riserva(const std::string& base) {
  Aperta& aperta = Trova(base);
  if (aperta.riserva.empty()) {
    const std::string tabella =
        TestoMotore(connessione_,
                    "SELECT name FROM " + DialettoSqlite().Nome(aperta.schema) +
                        ".sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite%' LIMIT 1",
                    aperta.base.luogo);
    if (tabella.empty()) return;
    aperta.riserva = "DELETE FROM " + NomeTabella(base, tabella) + " WHERE 0";
  }
  Esegui(aperta.riserva);
}

void ConnessioneSqlite::Conferma() {
  Esegui("COMMIT");
}

void ConnessioneSqlite::Annulla() noexcept {
  if (InTransazione()) sqlite3_exec(connessione_, "ROLLBACK", nullptr, nullptr, nullptr);
}

void ConnessioneSqlite::TogliResti() noexcept {
  try {
    std::vector<fs::path> archivi;
    for (const Aperta& aperta : aperte_) archivi.push_back(aperta.base.luogo);
    RestiFile resti(archivi);
    if (resti.Nessuno()) return;
    // Whoever holds this lock on all bases is the only one that may be in the middle of a
    // transaction, and taking it has rolled back what another was killed in. Nobody waits for it:
    // where others work, another opening will be alone.
    sqlite3_busy_handler(connessione_, nullptr, nullptr);
    if (sqlite3_exec(connessione_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == SQLITE_OK) {
      resti.Togli();
    }
  } catch (...) {
    // They do no harm but to the eye.
  }
  Annulla();
  attesa_.Installa(connessione_);
}

bool ConnessioneSqlite::InTransazione() const noexcept {
  return sqlite3_get_autocommit(connessione_) == 0;
}

}  // namespace fenalto::engine::sqlite
