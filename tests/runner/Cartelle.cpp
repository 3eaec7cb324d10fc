#include "runner/Cartelle.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

#include "core/session/CreaDitta.h"
#include "core/session/FileIni.h"
#include "runner/Esecutore.h"

namespace fenalto::copione {
namespace {

/// Keeps other runners out of a folder while it lives.
class BloccoCartella {
 public:
  explicit BloccoCartella(const std::filesystem::path& cartella)
      : descrittore_(open(cartella.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (descrittore_ >= 0) flock(descrittore_, LOCK_EX);
  }
  ~BloccoCartella() {
    if (descrittore_ >= 0) close(descrittore_);
  }
  BloccoCartella(const BloccoCartella&) = delete;
  BloccoCartella& operator=(const BloccoCartella&) = delete;
  [[nodiscard]] bool Aperta() const { return descrittore_ >= 0; }

 private:
  int descrittore_;
};

}  // namespace

CartellaProvvisoria::CartellaProvvisoria() {
  std::string modello =
      (std::filesystem::temp_directory_path() / "fenalto-copione-XXXXXX").string();
  if (mkdtemp(modello.data()) == nullptr) {
    throw std::runtime_error("no temporary folder can be made: " + modello);
  }
  percorso_ = modello;
}

CartellaProvvisoria::~CartellaProvvisoria() {
  std::error_code errore;
  std::filesystem::remove_all(percorso_, errore);
}

Esito<bool> Riempi(const OpzioniAmbiente& opzioni) {
  const auto& cartella = opzioni.cartellaProgramma;
  std::error_code errore;
  std::filesystem::create_directories(cartella, errore);
  const BloccoCartella blocco(cartella);
  if (!blocco.Aperta()) return Errore{"the folder " + cartella.string() + " can't be used"};
  if (!std::filesystem::is_empty(cartella, errore)) return true;
  auto creata = CreaDittaDaModello(
      opzioni, kDitta,
      {{2000, false, false}, {2023, true, false}, {2024, true, false}, {2025, true, false}}, true);
  if (!creata) return creata;
  // Copioni read amounts as the pictures of the text form show them, whatever the form.
  return FileIni::Scrivi(cartella / (std::string(kDitta) + ".ini"), "Config", "DecStampe", "3");
}

}  // namespace fenalto::copione
