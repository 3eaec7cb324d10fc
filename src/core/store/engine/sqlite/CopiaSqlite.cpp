#include "core/store/engine/sqlite/CopiaSqlite.h"

#include <sqlite3.h>

#include <map>
#include <stdexcept>
#include <string>

#include "core/store/engine/Disco.h"
#include "core/store/engine/sqlite/CambioFile.h"
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
  /// First column of all rows.
  std::vector<std::string> Tutti(const std::string& sql) {
    sqlite3_stmt* istruzione = nullptr;
    if (sqlite3_prepare_v2(motore_, sql.c_str(), -1, &istruzione, nullptr) != SQLITE_OK) Fallisci();
    std::vector<std::string> valori;
    int esito = sqlite3_step(istruzione);
    for (; esito == SQLITE_ROW; esito = sqlite3_step(istruzione)) {
      const auto* testo = sqlite3_column_text(istruzione, 0);
      valori.emplace_back(testo != nullptr ? reinterpret_cast<const char*>(testo) : "");
    }
    sqlite3_finalize(istruzione);
    if (esito != SQLITE_DONE) Fallisci();
    return valori;
  }
  /// First column of the first row; empty when there is none.
  std::string Singolo(const std::string& sql) {
    const std::vector<std::string> valori = Tutti(sql);
    return valori.empty() ? std::string() : valori.front();
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

/// Rows of each table, the store's own too; by name.
std::map<std::string, std::string> RigheDi(ConnessioneCopia& aperta) {
  std::map<std::string, std::string> righe;
  for (const std::string& nome : aperta.Tutti(
           "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%'")) {
    righe[nome] = aperta.Singolo("SELECT count(*) FROM " + DialettoSqlite().Nome(nome));
  }
  return righe;
}

/// Pages and indexes are whole and agree; else what the engine found first.
void ControllaTutto(ConnessioneCopia& aperta, const fs::path& file) {
  const std::string trovato = aperta.Singolo("PRAGMA integrity_check(1)");
  if (trovato == "ok") return;
  throw std::runtime_error("l'archivio " + file.string() + " è danneggiato (" + trovato +
                           "): ripristinare una copia");
}

void CompattaUno(const fs::path& archivio, const fs::path& destinazione) {
  ConnessioneCopia origine(archivio, SQLITE_OPEN_READWRITE);
  ControllaTutto(origine, archivio);
  const auto prima = RigheDi(origine);
  origine.Esegui("VACUUM INTO " + DialettoSqlite().Testo(destinazione.string()));
  ConnessioneCopia compatto(destinazione, SQLITE_OPEN_READWRITE);
  ControllaTutto(compatto, destinazione);
  const auto dopo = RigheDi(compatto);
  for (const auto& [tabella, righe] : prima) {
    const auto trovata = dopo.find(tabella);
    const std::string adesso = trovata == dopo.end() ? "nessuna" : trovata->second;
    if (adesso != righe) {
      std::string testo = "la tabella " + tabella;
      testo.append(" aveva ").append(righe).append(" righe e ne ha ").append(adesso);
      throw std::runtime_error(testo);
    }
  }
}

/// Empties the folders in which databases are prepared; where each is to be made.
std::vector<fs::path> PostiNuovi(const std::vector<fs::path>& archivi) {
  TogliPreparati(archivi);
  std::vector<fs::path> posti;
  for (const fs::path& archivio : archivi) {
    posti.push_back(PreparatoPer(archivio));
    fs::create_directories(posti.back().parent_path());
  }
  return posti;
}

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

std::vector<fs::path> PreparaFile(const std::vector<fs::path>& copie,
                                  const std::vector<fs::path>& archivi) {
  std::vector<fs::path> posti = PostiNuovi(archivi);
  for (std::size_t i = 0; i < copie.size(); ++i) {
    fs::copy_file(copie[i], posti[i]);
    fs::permissions(posti[i], fs::perms::owner_write, fs::perm_options::add);
    Sincronizza(posti[i]);
  }
  return posti;
}

std::vector<fs::path> CompattaFile(const std::vector<fs::path>& archivi) {
  std::vector<fs::path> posti = PostiNuovi(archivi);
  for (std::size_t i = 0; i < archivi.size(); ++i) {
    CompattaUno(archivi[i], posti[i]);
    Sincronizza(posti[i]);
  }
  return posti;
}

}  // namespace fenalto::engine::sqlite
