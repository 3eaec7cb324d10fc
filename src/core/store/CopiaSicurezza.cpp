#include "core/store/CopiaSicurezza.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

#include "core/sql/Motore.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

constexpr int kAttesaMotore = 10'000;  // ms for another station's commit
constexpr int kFirmaArchivio = 0x46656E61;

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
    sqlite3_busy_timeout(motore_, kAttesaMotore);
    RegistraMotore(motore_);
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

void Sincronizza(const fs::path& percorso) {
  const int descrittore = open(percorso.c_str(), O_RDONLY | O_CLOEXEC);
  if (descrittore < 0) return;
  fsync(descrittore);
  close(descrittore);
}

/// Copies one schema of a connection, all pages at once, into a new file.
void CopiaPagine(Connessione& origine, const char* schema, const fs::path& destinazione) {
  Connessione copia(destinazione, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
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

void TieniUltime(const fs::path& cartella) {
  const auto copie = CopieEsistenti(cartella);
  for (std::size_t i = kCopieTenute; i < copie.size(); ++i) fs::remove_all(copie[i]);
}

std::string Giornale(const fs::path& archivio) {
  return archivio.string() + "-journal";
}

}  // namespace

bool CopiaDovuta(const fs::path& cartella, Data oggi) {
  std::error_code errore;
  return !fs::exists(cartella / oggi.Iso(), errore);
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
  const fs::path lavoro = cartella / ("." + oggi.Iso() + "-" + std::to_string(getpid()) + ".tmp");
  const fs::path finale = cartella / oggi.Iso();
  try {
    fs::create_directories(cartella);
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
    if (fs::exists(finale)) {
      fs::remove_all(lavoro);  // another station was quicker
      return finale;
    }
    fs::rename(lavoro, finale);
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
  const std::pair<fs::path, fs::path> coppie[] = {
      {copia / percorsi.tessarc.filename(), percorsi.tessarc},
      {copia / percorsi.scadenzario.filename(), percorsi.scadenzario}};
  try {
    // Everything that can fail on the copy's side is tried before anything is replaced.
    for (const auto& [da, a] : coppie) {
      ControllaArchivio(da);
      fs::copy_file(da, a.string() + ".nuovo", fs::copy_options::overwrite_existing);
      Sincronizza(a.string() + ".nuovo");
    }
    for (const auto& [da, a] : coppie) {
      std::error_code ignorato;
      if (fs::exists(a)) fs::rename(a, a.string() + ".prima");
      fs::remove(Giornale(a), ignorato);
    }
    for (const auto& [da, a] : coppie) fs::rename(a.string() + ".nuovo", a);
    Sincronizza(percorsi.tessarc.parent_path());
    return true;
  } catch (const std::exception& errore) {
    std::error_code ignorato;
    for (const auto& [da, a] : coppie) {
      fs::remove(a.string() + ".nuovo", ignorato);
      if (!fs::exists(a, ignorato) && fs::exists(a.string() + ".prima", ignorato)) {
        fs::rename(a.string() + ".prima", a, ignorato);
      }
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
    return true;
  } catch (const std::exception& errore) {
    std::error_code ignorato;
    fs::remove(destinazione, ignorato);
    return Errore{"La copia di " + origine.string() + " in " + destinazione.string() +
                  " non è riuscita: " + errore.what()};
  }
}

}  // namespace fenalto
