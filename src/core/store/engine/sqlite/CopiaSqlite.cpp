#include "core/store/engine/sqlite/CopiaSqlite.h"

#include <sqlite3.h>

#include <stdexcept>

#include "core/store/engine/Disco.h"
#include "core/store/engine/sqlite/ConnessioneSqlite.h"
#include "core/store/engine/sqlite/DialettoSqlite.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"

namespace fenalto::engine::sqlite {
namespace {

namespace fs = std::filesystem;

// For other stations' commits; long, since one that works without a pause leaves few gaps.
constexpr auto kAttesaCopia = std::chrono::seconds(60);

/// A connection of the engine for the time of a copy.
class ConnessioneCopia {
 public:
  ConnessioneCopia(const fs::path& file, int modo) : file_(file) {
    const int esito = sqlite3_open_v2(file.c_str(), &motore_, modo, nullptr);
    if (esito != SQLITE_OK) {
      const std::string motivo = motore_ != nullptr ? sqlite3_errmsg(motore_) : "memoria esaurita";
      sqlite3_close(motore_);
      throw std::runtime_error("non si apre " + file.string() + ": " + motivo);
    }
    attesa_.Installa(motore_);
    try {
      RegistraMotore(motore_);
    } catch (...) {
      sqlite3_close(motore_);
      throw;
    }
  }
  ~ConnessioneCopia() { sqlite3_close(motore_); }
  ConnessioneCopia(const ConnessioneCopia&) = delete;
  ConnessioneCopia& operator=(const ConnessioneCopia&) = delete;

  [[nodiscard]] sqlite3* Motore() const { return motore_; }
  void Esegui(const std::string& sql) {
    if (sqlite3_exec(motore_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fallisci();
  }
  std::string Singolo(const std::string& sql) {
    sqlite3_stmt* istruzione = nullptr;
    if (sqlite3_prepare_v2(motore_, sql.c_str(), -1, &istruzione, nullptr) != SQLITE_OK) Fallisci();
    std::string valore;
    const int esito = sqlite3_step(istruzione);
    if (esito == SQLITE_ROW) {
      const auto* testo = sqlite3_column_text(istruzione, 0);
      if (testo != nullptr) valore = reinterpret_cast<const char*>(testo);
    }
    sqlite3_finalize(istruzione);
    if (esito != SQLITE_ROW && esito != SQLITE_DONE) Fallisci();
    return valore;
  }
  [[noreturn]] void Fallisci() const {
    throw std::runtime_error("copia di " + file_.string() + ": " + sqlite3_errmsg(motore_));
  }

 private:
  fs::path file_;
  AttesaArchivio attesa_{kAttesaCopia};
  sqlite3* motore_ = nullptr;
};

/// Copies one schema of a connection, all pages at once, into a new file.
void CopiaPagine(ConnessioneCopia& origine, const std::string& schema,
                 const fs::path& destinazione) {
  ConnessioneCopia copia(destinazione, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  // Writers wait meanwhile: synchronising comes after, and a copy that fails is thrown away.
  copia.Esegui("PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF");
  sqlite3_backup* lavoro =
      sqlite3_backup_init(copia.Motore(), "main", origine.Motore(), schema.c_str());
  if (lavoro == nullptr) copia.Fallisci();
  const int esito = sqlite3_backup_step(lavoro, -1);
  sqlite3_backup_finish(lavoro);
  if (esito != SQLITE_DONE) copia.Fallisci();
}

/// Opens a copy and has the engine look at every page of it.
void ControllaIntegrita(const fs::path& copia) {
  ConnessioneCopia aperta(copia, SQLITE_OPEN_READWRITE);
  if (aperta.Singolo("PRAGMA quick_check") != "ok") {
    throw std::runtime_error("la copia " + copia.string() + " è danneggiata");
  }
}

struct DaRimettere {
  fs::path copia;
  fs::path archivio;
  bool messoVia = false;
  bool giornaleVia = false;
  bool rimesso = false;
};

}  // namespace

void CopiaFile(const std::vector<Base>& basi, const std::vector<fs::path>& copie) {
  ConnessioneCopia origine(basi.front().luogo, SQLITE_OPEN_READWRITE);
  std::vector<std::string> schemi = {"main"};
  for (auto base = basi.begin() + 1; base != basi.end(); ++base) {
    origine.Esegui("ATTACH " + DialettoSqlite().Testo(base->luogo.string()) + " AS " + base->nome);
    schemi.push_back(base->nome);
  }
  if (schemi.size() > 1) {
    // Shared locks on all hold every commit back until they are copied: one instant.
    origine.Esegui("BEGIN");
    for (const std::string& schema : schemi) {
      origine.Singolo("SELECT count(*) FROM " + schema + ".sqlite_master");
    }
  }
  for (std::size_t i = 0; i < schemi.size(); ++i) CopiaPagine(origine, schemi[i], copie[i]);
  if (schemi.size() > 1) origine.Esegui("COMMIT");
}

void ControllaCopiaFile(const fs::path& copia, bool propria) {
  ControllaIntegrita(copia);
  if (!propria) return;
  ConnessioneCopia aperta(copia, SQLITE_OPEN_READWRITE);
  if (aperta.Singolo("PRAGMA application_id") != std::to_string(kIdApplicazione)) {
    throw std::runtime_error(copia.string() + " non è un archivio di questo programma");
  }
}

void RimettiFile(const std::vector<fs::path>& copie, const std::vector<Base>& basi) {
  std::vector<DaRimettere> coppie;
  for (std::size_t i = 0; i < basi.size(); ++i) coppie.push_back({copie[i], basi[i].luogo});
  const auto nuovo = [](const DaRimettere& c) { return c.archivio.string() + ".nuovo"; };
  const auto prima = [](const DaRimettere& c) { return c.archivio.string() + ".prima"; };
  try {
    // Everything that can fail on the copy's side is tried before anything is replaced.
    for (const DaRimettere& c : coppie) {
      ControllaCopiaFile(c.copia, true);
      fs::copy_file(c.copia, nuovo(c), fs::copy_options::overwrite_existing);
      Sincronizza(nuovo(c));
    }
    for (DaRimettere& c : coppie) {
      // The journal goes with its database: the new one mustn't find it.
      fs::remove(Giornale(prima(c)));
      if (fs::exists(Giornale(c.archivio))) {
        fs::rename(Giornale(c.archivio), Giornale(prima(c)));
        c.giornaleVia = true;
      }
      if (!fs::exists(c.archivio)) continue;
      fs::rename(c.archivio, prima(c));
      c.messoVia = true;
    }
    for (DaRimettere& c : coppie) {
      fs::rename(nuovo(c), c.archivio);
      c.rimesso = true;
    }
    for (const DaRimettere& c : coppie) Sincronizza(fs::absolute(c.archivio).parent_path());
  } catch (...) {
    // Both as they were: one of each instant would be worse than either.
    std::error_code ignorato;
    for (const DaRimettere& c : coppie) {
      fs::remove(c.rimesso ? c.archivio : fs::path(nuovo(c)), ignorato);
      if (c.messoVia) fs::rename(prima(c), c.archivio, ignorato);
      if (c.giornaleVia) fs::rename(Giornale(prima(c)), Giornale(c.archivio), ignorato);
    }
    throw;
  }
}

}  // namespace fenalto::engine::sqlite
