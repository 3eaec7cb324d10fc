#include "duedates/riba/FileDistinta.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "core/session/FileTesto.h"
#include "duedates/riba/VerificaFileRiba.h"

namespace fenalto::duedates {

namespace fs = std::filesystem;

namespace {

/// Brings a new name to the disk. A file system that can't is no reason to stop.
void SincronizzaCartella(const fs::path& cartella) {
  const int descrittore =
      ::open(cartella.empty() ? "." : cartella.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descrittore < 0) return;
  ::fsync(descrittore);
  ::close(descrittore);
}

}  // namespace

fs::path NomeConservato(const fs::path& percorso) {
  std::error_code errore;
  if (percorso.empty() || !fs::exists(percorso, errore)) return {};
  fs::path nome = percorso.string() + ".prima";
  for (int n = 2; fs::exists(nome, errore); ++n) {
    nome = percorso.string() + ".prima" + std::to_string(n);
  }
  return nome;
}

FileDistinta::FileDistinta(fs::path percorso) : percorso_(std::move(percorso)) {
  std::error_code errore;
  if (!fs::is_symlink(percorso_, errore)) return;
  // The file behind a link is written, kept and put back, not the link.
  if (fs::path vero = fs::weakly_canonical(percorso_, errore); !errore) percorso_ = std::move(vero);
}

FileDistinta::~FileDistinta() {
  std::error_code errore;
  if (daTogliere_ && precedente_.empty()) fs::remove(percorso_, errore);
  if (!precedente_.empty()) fs::rename(precedente_, percorso_, errore);
}

Esito<bool> FileDistinta::ConservaPrecedente() {
  const fs::path nome = NomeConservato(percorso_);
  if (nome.empty()) return true;
  std::error_code errore;
  if (fs::copy_file(percorso_, nome, errore)) {
    precedente_ = nome;
    return true;
  }
  const std::string motivo = MotivoDiSistema(errore.value());
  fs::remove(nome, errore);
  return Errore{"impossibile conservare «" + percorso_.string() + "», che c'è già: " + motivo};
}

Esito<bool> FileDistinta::Scrivi(const FileRiba& file) {
  // What says the same already may stay, whoever wrote it.
  if (const auto presente = LeggiByteRiba(percorso_);
      presente && presente.Valore() == file.testo && !file.testo.empty()) {
    return true;
  }
  if (auto conservato = ConservaPrecedente(); !conservato) return conservato;
  daTogliere_ = true;
  auto scritto = ScriviFileRiba(percorso_, file);
  if (scritto) SincronizzaCartella(percorso_.parent_path());
  return scritto;
}

void FileDistinta::Tieni() {
  daTogliere_ = false;
  precedente_.clear();
}

}  // namespace fenalto::duedates
