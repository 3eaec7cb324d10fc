#include "core/session/FileTesto.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <thread>
#include <utility>

#include "core/values/Lettere.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace fs = std::filesystem;

std::string MotivoDiSistema(int numero) {
  switch (numero) {
    case EACCES:
    case EPERM:
    case EROFS:
      return "permesso negato o cartella in sola lettura: controllare i permessi";
    case ENOENT:
    case ENOTDIR:
      return "la cartella non esiste";
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return "disco pieno: liberare spazio e riprovare";
    case EISDIR:
      return "è una cartella";
    default:
      return std::generic_category().message(numero);
  }
}

namespace {

constexpr mode_t kPermessiNuovo = 0664;
constexpr mode_t kPermessiScrittura = 0222;

constexpr unsigned char kMetaC2 = 0xC2;
constexpr unsigned char kMetaC3 = 0xC3;

/// A descriptor closed on every way out.
class Descrittore {
 public:
  explicit Descrittore(int n) : n_(n) {}
  Descrittore(const Descrittore&) = delete;
  Descrittore& operator=(const Descrittore&) = delete;
  ~Descrittore() { Chiudi(); }
  [[nodiscard]] int N() const { return n_; }
  bool Chiudi() {
    if (n_ < 0) return true;
    return ::close(std::exchange(n_, -1)) == 0;
  }

 private:
  int n_;
};

Errore ErroreSu(const char* azione, const fs::path& file, int numero) {
  return {"impossibile " + std::string(azione) + " «" + file.string() +
          "»: " + MotivoDiSistema(numero)};
}

/// The file behind a symbolic link, so that the link isn't replaced by a file.
fs::path Vero(const fs::path& percorso) {
  std::error_code errore;
  if (!fs::is_symlink(percorso, errore)) return percorso;
  const fs::path vero = fs::weakly_canonical(percorso, errore);
  return errore ? percorso : vero;
}

fs::path Accanto(const fs::path& percorso, const char* finale) {
  return percorso.parent_path() / ("." + percorso.filename().string() + finale);
}

bool ScriviTutto(int descrittore, std::string_view testo) {
  while (!testo.empty()) {
    const ssize_t scritti = ::write(descrittore, testo.data(), testo.size());
    if (scritti < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    testo.remove_prefix(static_cast<std::size_t>(scritti));
  }
  return true;
}

void SincronizzaCartella(const fs::path& cartella) {
  // Some file systems can't sync a folder: the rename itself is done all the same.
  const Descrittore d(::open(cartella.empty() ? "." : cartella.c_str(), O_RDONLY | O_CLOEXEC));
  if (d.N() >= 0) ::fsync(d.N());
}

}  // namespace

std::string ComeUtf8(std::string_view byte) {
  return Utf8Valido(byte) ? std::string(byte) : DaLatin1(byte);
}

bool Utf8Guasto(std::string_view byte) noexcept {
  const bool segnato = byte.starts_with(kSegnoUtf8);
  std::size_t interi = 0;
  std::size_t rotti = 0;
  while (!byte.empty()) {
    const lettere::Unita unita = lettere::Leggi(byte);
    byte.remove_prefix(unita.byte);
    if (unita.valida) {
      if (unita.byte > 1) ++interi;
      continue;
    }
    ++rotti;
    // The first half of an accented letter, which in Latin-1 is a letter that Italian hasn't.
    const auto primo = static_cast<unsigned char>(unita.carattere);
    const bool meta = primo == kMetaC2 || primo == kMetaC3;
    const bool lettera =
        !byte.empty() && ((byte[0] >= 'A' && byte[0] <= 'Z') || (byte[0] >= 'a' && byte[0] <= 'z'));
    if (meta && !lettera) ++interi;
  }
  return rotti > 0 && (segnato || interi >= rotti);
}

Esito<std::string> LeggiFileTesto(const fs::path& percorso) {
  auto letto = LeggiFileByte(percorso);
  if (!letto || Utf8Valido(letto.Valore())) return letto;
  return DaLatin1(letto.Valore());
}

Esito<std::string> LeggiFileByte(const fs::path& percorso) {
  const Descrittore d(::open(percorso.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (d.N() < 0) {
    if (errno == ENOENT) return std::string();
    return ErroreSu("leggere", percorso, errno);
  }
  struct stat stato{};
  if (::fstat(d.N(), &stato) != 0) return ErroreSu("leggere", percorso, errno);
  if (S_ISDIR(stato.st_mode)) return ErroreSu("leggere", percorso, EISDIR);
  if (!S_ISREG(stato.st_mode)) {
    return Errore{"impossibile leggere «" + percorso.string() + "»: non è un file di testo"};
  }
  std::string testo;
  constexpr std::size_t kPezzo = 65'536;
  testo.reserve(std::min(static_cast<std::size_t>(stato.st_size), std::size_t{kMassimoFileTesto}));
  for (;;) {
    const std::size_t prima = testo.size();
    if (prima > kMassimoFileTesto) {
      return Errore{"il file «" + percorso.string() +
                    "» è troppo grande (oltre 64 MB): non è un file di impostazioni"};
    }
    testo.resize(prima + kPezzo);
    const ssize_t letti = ::read(d.N(), testo.data() + prima, kPezzo);
    const int numero = errno;
    testo.resize(prima + (letti > 0 ? static_cast<std::size_t>(letti) : 0));
    if (letti == 0) break;
    if (letti < 0 && numero != EINTR) return ErroreSu("leggere", percorso, numero);
  }
  return testo;
}

Esito<bool> ScriviFileTesto(const fs::path& percorso, std::string_view testo) {
  const fs::path file = Vero(percorso);
  struct stat stato{};
  const bool esiste = ::stat(file.c_str(), &stato) == 0;
  if (esiste && !S_ISREG(stato.st_mode)) return ErroreSu("scrivere", file, EISDIR);
  if (esiste && (stato.st_mode & kPermessiScrittura) == 0) {
    return Errore{"impossibile scrivere «" + file.string() +
                  "»: il file è in sola lettura, dare il permesso di scrittura"};
  }
  const fs::path nuovo = Accanto(file, ".nuovo");
  Descrittore d(
      ::open(nuovo.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, kPermessiNuovo));
  if (d.N() < 0) return ErroreSu("scrivere", file, errno);
  bool riuscito = ScriviTutto(d.N(), testo);
  if (riuscito && esiste) riuscito = ::fchmod(d.N(), stato.st_mode & 07777U) == 0;
  riuscito = riuscito && ::fsync(d.N()) == 0 && d.Chiudi();
  riuscito = riuscito && ::rename(nuovo.c_str(), file.c_str()) == 0;
  if (!riuscito) {
    const int numero = errno;
    ::unlink(nuovo.c_str());
    return ErroreSu("scrivere", file, numero);
  }
  SincronizzaCartella(file.parent_path());
  return true;
}

Esito<BloccoFile> BloccoFile::Prendi(const fs::path& percorso, std::chrono::milliseconds attesa) {
  const fs::path file = Vero(percorso);
  const fs::path blocco = Accanto(file, ".lck");
  const int d = ::open(blocco.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kPermessiNuovo);
  if (d < 0) return ErroreSu("scrivere", file, errno);
  BloccoFile tenuto(d);
  struct flock intero{};
  intero.l_type = F_WRLCK;
  intero.l_whence = SEEK_SET;
  const auto fine = std::chrono::steady_clock::now() + attesa;
  auto pausa = std::chrono::microseconds(100);
  constexpr auto kPausaMassima = std::chrono::microseconds(5'000);
  // Asked again and again rather than waited for: a station that hangs must not hang the others.
  while (::fcntl(d, F_OFD_SETLK, &intero) != 0) {
    if (errno != EAGAIN && errno != EACCES && errno != EINTR) {
      return ErroreSu("bloccare", file, errno);
    }
    if (std::chrono::steady_clock::now() >= fine) {
      return Errore{"il file «" + file.string() +
                    "» è tenuto da un'altra stazione: riprovare fra poco"};
    }
    std::this_thread::sleep_for(pausa);
    pausa = std::min(pausa * 2, kPausaMassima);
  }
  return Esito<BloccoFile>(std::move(tenuto));
}

BloccoFile::BloccoFile(BloccoFile&& altro) noexcept
    : descrittore_(std::exchange(altro.descrittore_, -1)) {}

BloccoFile::~BloccoFile() {
  if (descrittore_ >= 0) ::close(descrittore_);
}

}  // namespace fenalto
