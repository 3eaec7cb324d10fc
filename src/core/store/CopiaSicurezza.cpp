#include "core/store/CopiaSicurezza.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <stdexcept>

#include "core/store/NucleoBasi.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

// For other stations' commits; long, since one that works without a pause leaves few gaps.
constexpr auto kAttesaCopia = std::chrono::seconds(60);
constexpr int kFirmaArchivio = 0x46656E61;
constexpr const char* kEstensioneLavoro = ".tmp";  // of a folder in which a copy is being made

/// What went wrong, on its way to the one place where it becomes the caller's error.
class CopiaFallita : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A connection of the engine for the time of a copy.
class Connessione {
 public:
  Connessione(const fs::path& file, int modo) : file_(file) {
    const int esito = sqlite3_open_v2(file.c_str(), &motore_, modo, nullptr);
    if (esito != SQLITE_OK) {
      const std::string motivo = motore_ != nullptr ? sqlite3_errmsg(motore_) : "memoria esaurita";
      sqlite3_close(motore_);
      throw CopiaFallita("non si apre " + file.string() + ": " + motivo);
    }
    attesa_.Installa(motore_);
    try {
      engine::sqlite::RegistraMotore(motore_);
    } catch (...) {
      sqlite3_close(motore_);
      throw;
    }
  }
  ~Connessione() { sqlite3_close(motore_); }
  Connessione(const Connessione&) = delete;
  Connessione& operator=(const Connessione&) = delete;

  [[nodiscard]] sqlite3* Motore() const { return motore_; }
  void Esegui(const std::string& sql) {
    if (sqlite3_exec(motore_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fallisci();
  }
  std::string Singolo(const char* sql) {
    sqlite3_stmt* istruzione = nullptr;
    if (sqlite3_prepare_v2(motore_, sql, -1, &istruzione, nullptr) != SQLITE_OK) Fallisci();
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
    throw CopiaFallita("copia di " + file_.string() + ": " + sqlite3_errmsg(motore_));
  }

 private:
  fs::path file_;
  AttesaArchivio attesa_{kAttesaCopia};
  sqlite3* motore_ = nullptr;
};

std::string Citato(const std::string& testo) {
  std::string citato = "'";
  for (const char c : testo) {
    if (c == '\'') citato += c;
    citato += c;
  }
  return citato + "'";
}

/// Waits until a file or folder is on the disk.
void Sincronizza(const fs::path& percorso) {
  const int descrittore = open(percorso.c_str(), O_RDONLY | O_CLOEXEC);
  const bool riuscita = descrittore >= 0 && fsync(descrittore) == 0;
  const int motivo = errno;
  if (descrittore >= 0) close(descrittore);
  // Shares that can't synchronise a folder say so with EINVAL.
  if (!riuscita && motivo != EINVAL) {
    throw CopiaFallita(percorso.string() + " non arriva al disco: " + std::strerror(motivo));
  }
}

/// Copies one schema of a connection, all pages at once, into a new file.
void CopiaPagine(Connessione& origine, const char* schema, const fs::path& destinazione) {
  Connessione copia(destinazione, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  // Writers wait meanwhile: synchronising comes after, and a copy that fails is thrown away.
  copia.Esegui("PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF");
  sqlite3_backup* lavoro = sqlite3_backup_init(copia.Motore(), "main", origine.Motore(), schema);
  if (lavoro == nullptr) copia.Fallisci();
  const int esito = sqlite3_backup_step(lavoro, -1);
  sqlite3_backup_finish(lavoro);
  if (esito != SQLITE_DONE) copia.Fallisci();
}

/// Opens a copy and has the engine look at every page of it.
void Controlla(const fs::path& copia) {
  Connessione aperta(copia, SQLITE_OPEN_READWRITE);
  if (aperta.Singolo("PRAGMA quick_check") != "ok") {
    throw CopiaFallita("la copia " + copia.string() + " è danneggiata");
  }
}

void ControllaArchivio(const fs::path& file) {
  Controlla(file);
  Connessione aperto(file, SQLITE_OPEN_READWRITE);
  if (aperto.Singolo("PRAGMA application_id") != std::to_string(kFirmaArchivio)) {
    throw CopiaFallita(file.string() + " non è un archivio di questo programma");
  }
}

/// Removes all but the newest copies, and what copies that were killed left behind. What can't be
/// removed now will be another day.
void TieniUltime(const fs::path& cartella) {
  std::error_code ignorato;
  const auto copie = CopieEsistenti(cartella);
  for (std::size_t i = kCopieTenute; i < copie.size(); ++i) fs::remove_all(copie[i], ignorato);
  const auto ieri = fs::file_time_type::clock::now() - std::chrono::hours(24);
  std::vector<fs::path> resti;
  for (const auto& voce : fs::directory_iterator(cartella, ignorato)) {
    const fs::path& resto = voce.path();
    if (resto.extension() == kEstensioneLavoro && voce.last_write_time(ignorato) < ieri) {
      resti.push_back(resto);
    }
  }
  for (const fs::path& resto : resti) fs::remove_all(resto, ignorato);
}

std::string Giornale(const fs::path& archivio) {
  return archivio.string() + "-journal";
}

}  // namespace

bool CopiaDovuta(const fs::path& cartella, Data oggi) {
  std::error_code errore;
  return !fs::is_directory(cartella / oggi.Iso(), errore);
}

std::vector<fs::path> CopieEsistenti(const fs::path& cartella) {
  std::vector<fs::path> copie;
  std::error_code errore;
  for (const auto& voce : fs::directory_iterator(cartella, errore)) {
    if (voce.is_directory() && Data::DaIso(voce.path().filename().string())) {
      copie.push_back(voce.path());
    }
  }
  std::sort(copie.begin(), copie.end(), std::greater<>());
  return copie;
}

Esito<fs::path> EseguiCopia(const PercorsiArchivi& percorsi, const fs::path& cartella, Data oggi) {
  // One name a process: two stations that copy at once don't meet in one folder.
  const fs::path lavoro =
      cartella / ("." + oggi.Iso() + "-" + std::to_string(getpid()) + kEstensioneLavoro);
  const fs::path finale = cartella / oggi.Iso();
  try {
    fs::create_directories(cartella);
    if (fs::is_directory(finale)) return finale;
    fs::remove_all(lavoro);
    fs::create_directory(lavoro);
    const fs::path tessarc = lavoro / percorsi.tessarc.filename();
    const fs::path scadenzario = lavoro / percorsi.scadenzario.filename();
    {
      Connessione origine(percorsi.tessarc, SQLITE_OPEN_READWRITE);
      origine.Esegui("ATTACH " + Citato(percorsi.scadenzario.string()) + " AS scadenzario");
      // Shared locks on both hold every commit back until both are copied: one instant.
      origine.Esegui("BEGIN");
      origine.Singolo("SELECT count(*) FROM main.sqlite_master");
      origine.Singolo("SELECT count(*) FROM scadenzario.sqlite_master");
      CopiaPagine(origine, "main", tessarc);
      CopiaPagine(origine, "scadenzario", scadenzario);
      origine.Esegui("COMMIT");
    }
    for (const auto& copia : {tessarc, scadenzario}) {
      ControllaArchivio(copia);
      Sincronizza(copia);
    }
    Sincronizza(lavoro);
    std::error_code rinomina;
    fs::rename(lavoro, finale, rinomina);
    if (rinomina && fs::is_directory(finale)) {
      fs::remove_all(lavoro);  // another station was quicker
    } else if (rinomina) {
      throw CopiaFallita(finale.string() + " non si può creare: " + rinomina.message());
    }
    Sincronizza(cartella);
    TieniUltime(cartella);
    return finale;
  } catch (const std::exception& errore) {
    std::error_code ignorato;
    fs::remove_all(lavoro, ignorato);
    return Errore{"La copia di sicurezza in " + finale.string() +
                  " non è riuscita: " + errore.what() +
                  ". I dati sono intatti; controllare lo spazio e i permessi della cartella."};
  }
}

Esito<bool> RipristinaCopia(const fs::path& copia, const PercorsiArchivi& percorsi) {
  struct DaRimettere {
    fs::path copia;
    fs::path archivio;
    bool messoVia = false;
    bool giornaleVia = false;
    bool rimesso = false;
  };
  std::array<DaRimettere, 2> coppie = {
      DaRimettere{copia / percorsi.tessarc.filename(), percorsi.tessarc},
      DaRimettere{copia / percorsi.scadenzario.filename(), percorsi.scadenzario}};
  const auto nuovo = [](const DaRimettere& c) { return c.archivio.string() + ".nuovo"; };
  const auto prima = [](const DaRimettere& c) { return c.archivio.string() + ".prima"; };
  try {
    // Everything that can fail on the copy's side is tried before anything is replaced.
    for (const DaRimettere& c : coppie) {
      ControllaArchivio(c.copia);
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
    return true;
  } catch (const std::exception& errore) {
    // Both as they were: one of each instant would be worse than either.
    std::error_code ignorato;
    for (const DaRimettere& c : coppie) {
      fs::remove(c.rimesso ? c.archivio : fs::path(nuovo(c)), ignorato);
      if (c.messoVia) fs::rename(prima(c), c.archivio, ignorato);
      if (c.giornaleVia) fs::rename(Giornale(prima(c)), Giornale(c.archivio), ignorato);
    }
    return Errore{"Il ripristino da " + copia.string() + " non è riuscito: " + errore.what()};
  }
}

Esito<bool> CopiaArchivio(const fs::path& origine, const fs::path& destinazione) {
  std::error_code esiste;
  if (fs::exists(destinazione, esiste)) {
    return Errore{"la copia " + destinazione.string() + " esiste già"};
  }
  try {
    if (destinazione.has_parent_path()) fs::create_directories(destinazione.parent_path());
    {
      Connessione aperta(origine, SQLITE_OPEN_READWRITE);
      CopiaPagine(aperta, "main", destinazione);
    }
    Controlla(destinazione);
    Sincronizza(destinazione);
    Sincronizza(fs::absolute(destinazione).parent_path());
    return true;
  } catch (const std::exception& errore) {
    std::error_code ignorato;
    fs::remove(destinazione, ignorato);
    return Errore{"La copia di " + origine.string() + " in " + destinazione.string() +
                  " non è riuscita: " + errore.what()};
  }
}

}  // namespace fenalto
