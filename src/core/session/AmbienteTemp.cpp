// Scratch databases of windows: their folder, their names, and what dead processes left.

#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <stdexcept>
#include <system_error>

#include "core/session/AmbienteInterno.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kSoloMio = 0700;
constexpr mode_t kDegliAltri = 0077;

/// A folder that is the user's and nobody else's; a link isn't one.
bool Privata(const fs::path& cartella) {
  struct stat stato{};
  return ::lstat(cartella.c_str(), &stato) == 0 && S_ISDIR(stato.st_mode) &&
         stato.st_uid == ::geteuid() && (stato.st_mode & kDegliAltri) == 0;
}

/// The process that made a scratch file of ours; 0 when it isn't one.
pid_t ProcessoDi(const std::string& nome) {
  if (!nome.starts_with('x')) return 0;
  pid_t processo = 0;
  const char* fine = nome.data() + nome.size();
  const auto letto = std::from_chars(nome.data() + 1, fine, processo);
  return letto.ec == std::errc() && letto.ptr != fine && *letto.ptr == '_' ? processo : 0;
}

}  // namespace

fs::path CartellaTemporanei() {
  const fs::path base = fs::temp_directory_path();
  const std::string nome = "fenalto-" + std::to_string(::geteuid());
  fs::path cartella = base / nome;
  if (::mkdir(cartella.c_str(), kSoloMio) == 0 || Privata(cartella)) return cartella;
  // Somebody else has taken the name: a folder of another name, for this run.
  static const fs::path altra = [&] {
    std::string modello = (base / (nome + "-XXXXXX")).string();
    if (::mkdtemp(modello.data()) == nullptr) {
      throw std::runtime_error("impossibile creare una cartella temporanea in «" + base.string() +
                               "»: controllare i permessi e lo spazio");
    }
    return fs::path(modello);
  }();
  return altra;
}

void RimuoviTemporaneiMorti(const fs::path& cartella) {
  std::error_code errore;
  for (auto voce = fs::directory_iterator(cartella, errore);
       !errore && voce != fs::directory_iterator(); voce.increment(errore)) {
    const pid_t processo = ProcessoDi(voce->path().filename().string());
    if (processo <= 0 || ::kill(processo, 0) == 0 || errno != ESRCH) continue;
    std::error_code ignoto;
    fs::remove(voce->path(), ignoto);
  }
}

fs::path Ambiente::CartellaTemp(std::string_view nomeFinestra, int indice) {
  static std::atomic<int> contatore{0};
  std::string nome = "x" + std::to_string(::getpid()) + "_";
  for (const char c : nomeFinestra) {
    const bool semplice =
        (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    if (semplice) nome += c;
  }
  nome += std::to_string(indice) + "_" + std::to_string(++contatore) + ".mdb";
  if (interno_->cartellaTemp.empty()) interno_->cartellaTemp = CartellaTemporanei();
  interno_->temporanei.push_back(interno_->cartellaTemp / nome);
  return interno_->temporanei.back();
}

}  // namespace fenalto
