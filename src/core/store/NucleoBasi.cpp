#include "core/store/NucleoBasi.h"

#include <sqlite3.h>

#include <algorithm>
#include <stdexcept>
#include <thread>
#include <utility>

#include "core/store/ErroriMotore.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "core/values/Testo.h"

namespace fenalto {

using Causa = ErroreArchivio::Causa;
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

// --- Opening ------------------------------------------------------------------------------------

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
    engine::sqlite::RegistraMotore(connessione);
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

std::int64_t InteroMotore(sqlite3* connessione, const std::string& sql, const fs::path& file) {
  sqlite3_stmt* istruzione = nullptr;
  int rc = sqlite3_prepare_v2(connessione, sql.c_str(), -1, &istruzione, nullptr);
  std::int64_t valore = 0;
  if (rc == SQLITE_OK) {
    rc = sqlite3_step(istruzione);
    if (rc == SQLITE_ROW) valore = sqlite3_column_int64(istruzione, 0);
  }
  const int fine = sqlite3_finalize(istruzione);
  if (rc == SQLITE_OK || rc == SQLITE_ROW || rc == SQLITE_DONE) rc = fine;
  if (rc != SQLITE_OK) throw ErroreMotore(connessione, rc, file, sql);
  return valore;
}

NucleoBasi::NucleoBasi(PercorsiArchivi percorsi, OpzioniApertura opzioni)
    : percorsi_(std::move(percorsi)), opzioni_(std::move(opzioni)), attesa_(opzioni_.attesa) {}

NucleoBasi::~NucleoBasi() {
  Chiudi();
}

void NucleoBasi::Apri() {
  connessione_ = ApriConnessione(percorsi_.tessarc, opzioni_.vfs, false);
  attesa_.Installa(connessione_);
  // Read now: attaching reads every schema, and would lay this one's faults at the other's door.
  InteroMotore(connessione_, "SELECT count(*) FROM main.sqlite_schema", percorsi_.tessarc);
  sqlite3_stmt* attacca = nullptr;
  int rc = sqlite3_prepare_v2(connessione_, "ATTACH ?1 AS scadenzario", -1, &attacca, nullptr);
  if (rc == SQLITE_OK) {
    sqlite3_bind_text(attacca, 1, percorsi_.scadenzario.c_str(), -1, SQLITE_TRANSIENT);
    rc = sqlite3_step(attacca);
  }
  sqlite3_finalize(attacca);
  if (rc != SQLITE_DONE) throw ErroreMotore(connessione_, rc, percorsi_.scadenzario);
  // Sorts spill to temporary files past the cache, so that a report over all movements stays small.
  EseguiMotore(connessione_,
               "PRAGMA main.journal_mode = TRUNCATE; PRAGMA main.synchronous = FULL;"
               "PRAGMA main.cache_size = -12000; PRAGMA foreign_keys = OFF;",
               percorsi_.tessarc);
  EseguiMotore(connessione_,
               "PRAGMA scadenzario.journal_mode = TRUNCATE; PRAGMA scadenzario.synchronous = FULL;"
               "PRAGMA scadenzario.cache_size = -8000;",
               percorsi_.scadenzario);
}

void NucleoBasi::Chiudi() noexcept {
  if (connessione_ == nullptr) return;
  if (inTransazione_) Annulla();
  while (!cursori_.empty()) {
    CursoreAperto* cursore = cursori_.back();
    cursori_.pop_back();
    cursore->Interrompi();
  }
  for (DatiArchivio* archivio : archivi_) {
    archivio->chiuso = true;
    archivio->cache.Svuota();
  }
  archivi_.clear();
  sqlite3_close_v2(connessione_);
  connessione_ = nullptr;
  blocchi_.reset();
}

fenalto::Blocchi& NucleoBasi::Blocchi() {
  if (!blocchi_) {
    fs::path file = percorsi_.tessarc;
    file.replace_extension(".blocchi");
    blocchi_.emplace(std::move(file), opzioni_.stazione, opzioni_.utente);
  }
  return *blocchi_;
}

// --- Running ------------------------------------------------------------------------------------

void NucleoBasi::RilasciaLetture(std::chrono::milliseconds ferme) {
  const auto limite = std::chrono::steady_clock::now() - ferme;
  const std::vector<CursoreAperto*> tutti = cursori_;
  for (CursoreAperto* cursore : tutti) {
    if (cursore->UltimaLettura() <= limite) cursore->Completa();
  }
}

void NucleoBasi::PrimaDiEseguire() {
  if (!cursori_.empty()) RilasciaLetture(std::chrono::seconds(1));
  ++eseguite_;
  if (mancanoAlGuasto_ > 0 && --mancanoAlGuasto_ == 0) {
    if (guasto_ == Guasto::Memoria) {
      throw ErroreArchivio(Causa::Memoria, "memoria insufficiente (guasto di prova)");
    }
    if (guasto_ == Guasto::Errore) {
      throw ErroreArchivio(Causa::Altro, "istruzione non eseguita (guasto di prova)");
    }
  }
  // After a full disk or an input/output error the engine has undone the whole transaction; what
  // follows would stand alone.
  if (inTransazione_ && sqlite3_get_autocommit(connessione_) != 0) {
    throw ErroreArchivio(Causa::Altro,
                         "la registrazione è stata annullata da un errore precedente su «" +
                             percorsi_.tessarc.string() + "»: ripetere l'operazione");
  }
}

bool NucleoBasi::PrimoPasso(const Preparata& preparata, const DatiArchivio& archivio) {
  int rc = sqlite3_step(preparata.Motore());
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  if ((rc & 0xff) == SQLITE_BUSY && !cursori_.empty()) {
    // While a cursor of ours reads, the engine doesn't wait for a writer that waits for us.
    sqlite3_reset(preparata.Motore());
    if (CompletaTutti()) rc = sqlite3_step(preparata.Motore());
    if (rc == SQLITE_ROW) return true;
    if (rc == SQLITE_DONE) return false;
  }
  throw ErroreMotore(connessione_, rc, archivio.percorso, sqlite3_sql(preparata.Motore()));
}

bool NucleoBasi::Passo(const Preparata& preparata, const DatiArchivio& archivio) {
  const int rc = sqlite3_step(preparata.Motore());
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  throw ErroreMotore(connessione_, rc, archivio.percorso, sqlite3_sql(preparata.Motore()));
}

std::int64_t NucleoBasi::EseguiAzione(const Preparata& preparata, const DatiArchivio& archivio,
                                      const std::string& tabella) {
  PrimaDiEseguire();
  if (!cursori_.empty()) CompletaCursori(archivio, tabella);
  PrimoPasso(preparata, archivio);
  return sqlite3_changes64(connessione_);
}

void NucleoBasi::CompletaCursori(const DatiArchivio& archivio, const std::string& tabella) {
  const TabellaArchivio* completa = archivio.catalogo.Completa(tabella);
  std::vector<CursoreAperto*> toccati;
  for (CursoreAperto* cursore : cursori_) {
    bool tocca = completa == nullptr || cursore->Legge(completa->vista.nomeMotore);
    if (!tocca) {
      // Triggers write the mirrors of the changed table.
      for (const DatiArchivio* altro : archivi_) {
        if (altro->schema != completa->schema) continue;
        tocca = tocca || altro->catalogo.OgniSpecchioDi(tabella, [&](const std::string& nome) {
          return cursore->Legge(nome);
        });
      }
    }
    if (tocca) toccati.push_back(cursore);
  }
  for (CursoreAperto* cursore : toccati) cursore->Completa();
}

bool NucleoBasi::CompletaTutti() {
  const std::vector<CursoreAperto*> tutti = cursori_;
  for (CursoreAperto* cursore : tutti) cursore->Completa();
  return !tutti.empty();
}

void NucleoBasi::Dimentica(CursoreAperto* cursore) noexcept {
  std::erase(cursori_, cursore);
}

// --- Transaction --------------------------------------------------------------------------------

void NucleoBasi::EseguiContata(const char* sql) {
  PrimaDiEseguire();
  int rc = sqlite3_exec(connessione_, sql, nullptr, nullptr, nullptr);
  if ((rc & 0xff) == SQLITE_BUSY && !cursori_.empty() && CompletaTutti()) {
    rc = sqlite3_exec(connessione_, sql, nullptr, nullptr, nullptr);
  }
  if (rc != SQLITE_OK) throw ErroreMotore(connessione_, rc, percorsi_.tessarc);
}

void NucleoBasi::Inizia(Transazione::Ambito ambito) {
  if (inTransazione_) throw std::logic_error("Transazione annidata");
  // IMMEDIATE takes the write lock of every attached database, both of the company's included, so
  // nothing later in the transaction waits for another station. But each locked database counts as
  // written at the commit, and two of them cost a file of their own and three more syncs: what
  // writes tessarc alone locks just that one, by a statement that changes nothing, and what writes
  // scratch databases alone locks each at its first statement.
  EseguiContata(ambito == Transazione::Ambito::Tutto ? "BEGIN IMMEDIATE" : "BEGIN");
  inTransazione_ = true;
  if (ambito != Transazione::Ambito::Tessarc) return;
  try {
    EseguiContata(NienteInTessarc().c_str());
  } catch (...) {
    Annulla();
    throw;
  }
}

const std::string& NucleoBasi::NienteInTessarc() {
  if (nienteInTessarc_.empty()) {
    sqlite3_stmt* prima = nullptr;
    const char* sql =
        "SELECT name FROM main.sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' "
        "LIMIT 1";
    if (sqlite3_prepare_v2(connessione_, sql, -1, &prima, nullptr) == SQLITE_OK &&
        sqlite3_step(prima) == SQLITE_ROW) {
      const auto* nome = reinterpret_cast<const char*>(sqlite3_column_text(prima, 0));
      nienteInTessarc_ = std::string("DELETE FROM main.\"") + nome + "\" WHERE 0";
    }
    sqlite3_finalize(prima);
  }
  return nienteInTessarc_;
}

void NucleoBasi::Conferma() {
  EseguiContata("COMMIT");
  inTransazione_ = false;
  StaccaRimandati();
}

void NucleoBasi::Annulla() noexcept {
  if (sqlite3_get_autocommit(connessione_) == 0) {
    sqlite3_exec(connessione_, "ROLLBACK", nullptr, nullptr, nullptr);
  }
  inTransazione_ = false;
  StaccaRimandati();
}

// --- Scratch databases --------------------------------------------------------------------------

std::string NucleoBasi::Attacca(const fs::path& percorso) {
  if (inTransazione_) {
    throw ErroreArchivio(Causa::Sql, "l'archivio di lavoro «" + percorso.string() +
                                         "» non si apre durante una registrazione");
  }
  PrimaDiEseguire();
  // Numbers aren't used again, so that a link to a detached database can't mean another one.
  const std::string schema = std::string("x").append(std::to_string(prossimoTemporaneo_++));
  sqlite3_stmt* attacca = nullptr;
  int rc =
      sqlite3_prepare_v2(connessione_, ("ATTACH ?1 AS " + schema).c_str(), -1, &attacca, nullptr);
  if (rc == SQLITE_OK) {
    sqlite3_bind_text(attacca, 1, percorso.c_str(), -1, SQLITE_TRANSIENT);
    rc = sqlite3_step(attacca);
  }
  sqlite3_finalize(attacca);
  if (rc == SQLITE_ERROR &&
      std::string_view(sqlite3_errmsg(connessione_)).starts_with("too many attached")) {
    throw ErroreArchivio(Causa::Altro, "troppe finestre aperte: l'archivio di lavoro «" +
                                           percorso.string() +
                                           "» non si può aprire; chiudere qualche finestra");
  }
  if (rc != SQLITE_DONE) throw ErroreMotore(connessione_, rc, percorso);
  // Unsynced and journalled in memory, it needs no part in the commit over several files.
  EseguiMotore(connessione_,
               "PRAGMA " + schema + ".synchronous = OFF; PRAGMA " + schema +
                   ".journal_mode = MEMORY; PRAGMA " + schema + ".cache_size = -2000",
               percorso);
  return schema;
}

void NucleoBasi::Stacca(const std::string& schema) noexcept {
  if (connessione_ == nullptr) return;
  if (inTransazione_) {
    daStaccare_.push_back(schema);
    return;
  }
  StaccaOra(schema);
}

void NucleoBasi::StaccaOra(const std::string& schema) noexcept {
  // Detaching renumbers the databases and would stop the statements that run.
  while (!cursori_.empty()) {
    CursoreAperto* cursore = cursori_.back();
    try {
      cursore->Completa();
    } catch (const std::exception&) {
      cursore->Interrompi();
    }
  }
  sqlite3_exec(connessione_, ("DETACH " + schema).c_str(), nullptr, nullptr, nullptr);
}

void NucleoBasi::StaccaRimandati() noexcept {
  for (const std::string& schema : std::exchange(daStaccare_, {})) StaccaOra(schema);
}

// --- Registry -----------------------------------------------------------------------------------

void NucleoBasi::Togli(const DatiArchivio* archivio) noexcept {
  std::erase(archivi_, archivio);
}

DatiArchivio* NucleoBasi::PerPercorso(const fs::path& percorso) const {
  const fs::path voluto = fs::absolute(percorso).lexically_normal();
  for (DatiArchivio* archivio : archivi_) {
    if (fs::absolute(archivio->percorso).lexically_normal() == voluto) return archivio;
  }
  return nullptr;
}

bool NucleoBasi::Aperto(const fs::path& percorso) const {
  return PerPercorso(percorso) != nullptr;
}

DatiArchivio& NucleoBasi::Trova(const fs::path& percorso) const {
  if (DatiArchivio* archivio = PerPercorso(percorso)) return *archivio;
  for (DatiArchivio* archivio : archivi_) {
    const char* chiave = archivio->schema == kSchemaTessarc       ? "tessarc"
                         : archivio->schema == kSchemaScadenzario ? "scadenzario"
                                                                  : nullptr;
    if (chiave != nullptr && UgualeTesto(percorso.string(), chiave)) return *archivio;
  }
  throw ErroreArchivio(Causa::Mancante, "l'archivio «" + percorso.string() + "» non è aperto");
}

void NucleoBasi::ImpostaGuasto(int n, Guasto guasto) {
  mancanoAlGuasto_ = n;
  guasto_ = guasto;
  eseguite_ = 0;
}

}  // namespace fenalto
