#include "core/reports/FileAccanto.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <system_error>
#include <utility>

#include "core/session/FileTesto.h"

namespace fenalto::reports {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBlocco = 65'536;
constexpr mode_t kPermessiNuovo = 0664;
constexpr mode_t kPermessi = 07777;
constexpr mode_t kPermessiScrittura = 0222;

/// A name that no other export, here or on another station, is writing to.
fs::path NomeAccanto(const fs::path& file) {
  static std::atomic<unsigned> contatore = 0;
  return file.parent_path() / ("." + file.filename().string() + "." + std::to_string(::getpid()) +
                               "-" + std::to_string(++contatore) + ".nuovo");
}

}  // namespace

FileAccanto::FileAccanto(fs::path file) : file_(std::move(file)) {
  std::error_code errore;
  if (!fs::is_symlink(file_, errore)) return;
  // The file behind a link is replaced, not the link.
  if (fs::path vero = fs::weakly_canonical(file_, errore); !errore) file_ = std::move(vero);
}

FileAccanto::~FileAccanto() {
  Annulla();
}

bool FileAccanto::Fallito(int numero) {
  if (errore_ == 0) errore_ = numero == 0 ? EIO : numero;
  return false;
}

bool FileAccanto::Apri() {
  if (errore_ != 0) return false;
  if (descrittore_ >= 0) return true;
  struct stat stato{};
  if (::stat(file_.c_str(), &stato) == 0) {
    if (S_ISDIR(stato.st_mode)) return Fallito(EISDIR);
    if (!S_ISREG(stato.st_mode)) return Fallito(EINVAL);
    if ((stato.st_mode & kPermessiScrittura) == 0) return Fallito(EACCES);
  }
  accanto_ = NomeAccanto(file_);
  descrittore_ = ::open(accanto_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kPermessiNuovo);
  if (descrittore_ >= 0) return true;
  const int numero = errno;
  accanto_.clear();
  return Fallito(numero);
}

bool FileAccanto::Scrivi(std::string_view testo) {
  if (!Apri()) return false;
  attesa_ += testo;
  return attesa_.size() < kBlocco || Svuota();
}

bool FileAccanto::Svuota() {
  std::string_view resto = attesa_;
  while (!resto.empty()) {
    const ssize_t scritti = ::write(descrittore_, resto.data(), resto.size());
    if (scritti < 0 && errno == EINTR) continue;
    if (scritti < 0) return Fallito(errno);
    resto.remove_prefix(static_cast<std::size_t>(scritti));
  }
  attesa_.clear();
  return true;
}

Esito<bool> FileAccanto::Chiudi() {
  bool riuscito = Apri() && Svuota();
  struct stat stato{};
  if (riuscito && ::stat(file_.c_str(), &stato) == 0)
    riuscito = ::fchmod(descrittore_, stato.st_mode & kPermessi) == 0 || Fallito(errno);
  riuscito = riuscito && (::fsync(descrittore_) == 0 || Fallito(errno));
  if (descrittore_ >= 0 && ::close(std::exchange(descrittore_, -1)) != 0 && riuscito)
    riuscito = Fallito(errno);
  riuscito = riuscito && (::rename(accanto_.c_str(), file_.c_str()) == 0 || Fallito(errno));
  if (riuscito) {
    accanto_.clear();
    return true;
  }
  Annulla();
  return Errore{"impossibile scrivere «" + file_.string() + "»: " + MotivoDiSistema(errore_)};
}

void FileAccanto::Annulla() {
  if (descrittore_ >= 0) ::close(std::exchange(descrittore_, -1));
  if (!accanto_.empty()) ::unlink(accanto_.c_str());
  accanto_.clear();
  attesa_.clear();
  if (errore_ == 0) errore_ = ECANCELED;
}

}  // namespace fenalto::reports
