#include "core/store/engine/sqlite/CambioFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <set>
#include <stdexcept>
#include <string>

#include "core/store/engine/Disco.h"
#include "core/store/engine/sqlite/ConnessioneSqlite.h"

namespace fenalto::engine::sqlite {
namespace {

namespace fs = std::filesystem;

constexpr const char* kCartella = ".cambio";
constexpr const char* kNota = ".cambio";
constexpr const char* kTestoNota =
    "Gli archivi pronti nella cartella .cambio stanno prendendo il posto di quelli di prima.\n"
    "La prossima apertura della ditta finisce il cambio: non toccare nulla.\n";

fs::path Prima(const fs::path& archivio) {
  return archivio.string() + ".prima";
}

fs::path NotaDi(const std::vector<fs::path>& archivi) {
  return archivi.front().string() + kNota;
}

std::set<fs::path> CartelleDi(const std::vector<fs::path>& archivi) {
  std::set<fs::path> cartelle;
  for (const fs::path& archivio : archivi) cartelle.insert(fs::absolute(archivio).parent_path());
  return cartelle;
}

/// The note, held by whoever is changing files: one at a time.
class Nota {
 public:
  /// Opens it, waiting for whoever holds it; made when `nuova`.
  Nota(fs::path file, bool nuova) : file_(std::move(file)) {
    const int modo = O_RDWR | O_CLOEXEC | (nuova ? O_CREAT : 0);
    descrittore_ = open(file_.c_str(), modo, 0666);
    if (descrittore_ < 0) {
      if (!nuova && errno == ENOENT) return;
      Fallisci("non si apre");
    }
    struct flock blocco{};
    blocco.l_type = F_WRLCK;
    blocco.l_whence = SEEK_SET;
    while (fcntl(descrittore_, F_OFD_SETLKW, &blocco) != 0) {
      if (errno != EINTR) Fallisci("non si blocca");
    }
  }
  ~Nota() {
    if (descrittore_ >= 0) close(descrittore_);
  }
  Nota(const Nota&) = delete;
  Nota& operator=(const Nota&) = delete;

  /// Whether there is still one: another process may have finished it while this one waited.
  [[nodiscard]] bool Scritta() const {
    std::error_code errore;
    return descrittore_ >= 0 && fs::exists(file_, errore) && lseek(descrittore_, 0, SEEK_END) > 0;
  }
  void Scrivi() const {
    const std::string_view testo = kTestoNota;
    if (write(descrittore_, testo.data(), testo.size()) != static_cast<ssize_t>(testo.size()) ||
        fsync(descrittore_) != 0) {
      Fallisci("non si scrive");
    }
    Sincronizza(fs::absolute(file_).parent_path());
  }
  void Togli() const {
    fs::remove(file_);
    Sincronizza(fs::absolute(file_).parent_path());
  }
  void TogliSenzaErrori() const noexcept {
    std::error_code ignorato;
    fs::remove(file_, ignorato);
  }

 private:
  [[noreturn]] void Fallisci(const char* che) const {
    throw std::runtime_error(file_.string() + " " + che + ": " + std::strerror(errno));
  }
  fs::path file_;
  int descrittore_ = -1;
};

/// Moves one database aside and what was prepared for it into its place; whatever of it is done
/// already is passed over.
void Metti(const fs::path& archivio) {
  const fs::path pronto = PreparatoPer(archivio);
  if (!fs::exists(pronto)) return;
  // The journal goes with its database: the new one mustn't find it.
  if (fs::exists(Giornale(archivio))) fs::rename(Giornale(archivio), Giornale(Prima(archivio)));
  if (fs::exists(archivio)) fs::rename(archivio, Prima(archivio));
  fs::rename(pronto, archivio);
}

/// Undoes Metti.
void Rimetti(const fs::path& archivio) noexcept {
  std::error_code ignorato;
  const fs::path pronto = PreparatoPer(archivio);
  if (!fs::exists(pronto, ignorato)) fs::rename(archivio, pronto, ignorato);
  if (!fs::exists(archivio, ignorato)) fs::rename(Prima(archivio), archivio, ignorato);
  if (fs::exists(Giornale(Prima(archivio)), ignorato)) {
    fs::rename(Giornale(Prima(archivio)), Giornale(archivio), ignorato);
  }
}

void SincronizzaCartelle(const std::vector<fs::path>& archivi) {
  for (const fs::path& cartella : CartelleDi(archivi)) Sincronizza(cartella);
}

}  // namespace

fs::path PreparatoPer(const fs::path& archivio) {
  return fs::absolute(archivio).parent_path() / kCartella / archivio.filename();
}

void CambiaFile(const std::vector<fs::path>& archivi) {
  // What an earlier change has put aside goes before anything is done that can't be undone.
  for (const fs::path& archivio : archivi) {
    if (!fs::exists(PreparatoPer(archivio))) {
      throw std::runtime_error("manca " + PreparatoPer(archivio).string());
    }
    fs::remove(Giornale(Prima(archivio)));
    fs::remove(Prima(archivio));
  }
  for (const fs::path& cartella : CartelleDi(archivi)) Sincronizza(cartella / kCartella);
  const Nota nota(NotaDi(archivi), true);
  try {
    nota.Scrivi();
    for (const fs::path& archivio : archivi) Metti(archivio);
    SincronizzaCartelle(archivi);
  } catch (...) {
    // Both as they were: one of each instant would be worse than either.
    for (const fs::path& archivio : archivi) Rimetti(archivio);
    nota.TogliSenzaErrori();
    throw;
  }
  nota.Togli();
  TogliPreparati(archivi);
}

void FinisciCambio(const std::vector<fs::path>& archivi) {
  std::error_code errore;
  if (!fs::exists(NotaDi(archivi), errore)) return;
  const Nota nota(NotaDi(archivi), false);
  // An empty one was never synchronised: the change hadn't begun.
  if (nota.Scritta()) {
    for (const fs::path& archivio : archivi) Metti(archivio);
    SincronizzaCartelle(archivi);
  }
  if (!fs::exists(NotaDi(archivi), errore)) return;
  nota.Togli();
  TogliPreparati(archivi);
}

void RimettiPrima(const std::vector<fs::path>& archivi) {
  TogliPreparati(archivi);
  for (const fs::path& archivio : archivi) {
    fs::create_directories(PreparatoPer(archivio).parent_path());
    fs::rename(Prima(archivio), PreparatoPer(archivio));
  }
  CambiaFile(archivi);
}

void TogliPrima(const std::vector<fs::path>& archivi) noexcept {
  std::error_code ignorato;
  for (const fs::path& archivio : archivi) {
    fs::remove(Giornale(Prima(archivio)), ignorato);
    fs::remove(Prima(archivio), ignorato);
  }
}

void TogliPreparati(const std::vector<fs::path>& archivi) noexcept {
  std::error_code ignorato;
  for (const fs::path& cartella : CartelleDi(archivi)) {
    fs::remove_all(cartella / kCartella, ignorato);
  }
}

}  // namespace fenalto::engine::sqlite
