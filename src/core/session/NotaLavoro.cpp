#include "core/session/NotaLavoro.h"

#include <system_error>
#include <utility>

#include "core/values/Testo.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kInizioNota = ".lavoro-";
constexpr std::string_view kSezioneNota = "lavoro";

fs::path FileDelBlocco(const fs::path& nota) {
  return nota.parent_path() / ("." + nota.filename().string() + ".lck");
}

}  // namespace

NotaLavoro::NotaLavoro(fs::path file, FileIni contenuto, BloccoFile blocco)
    : file_(std::move(file)), contenuto_(std::move(contenuto)), blocco_(std::move(blocco)) {}

Esito<NotaLavoro> NotaLavoro::Inizia(const fs::path& cartella, const std::string& ditta,
                                     const Voci& voci) {
  const fs::path file = cartella / (std::string(kInizioNota) + SenzaMaiuscole(ditta));
  auto blocco = BloccoFile::Prendi(file, std::chrono::milliseconds(0));
  if (!blocco) return blocco.Errore();
  FileIni contenuto = FileIni::DaTesto("");
  for (const auto& [chiave, valore] : voci) contenuto.Imposta(kSezioneNota, chiave, valore);
  if (auto scritta = ScriviFileTesto(file, contenuto.Testo()); !scritta) {
    std::error_code ignorato;
    fs::remove(FileDelBlocco(file), ignorato);
    return scritta.Errore();
  }
  return NotaLavoro(file, std::move(contenuto), std::move(blocco).Valore());
}

std::vector<NotaLavoro> NotaLavoro::Lasciate(const fs::path& cartella) {
  std::vector<fs::path> file;
  std::error_code errore;
  for (auto voce = fs::directory_iterator(cartella, errore);
       !errore && voce != fs::directory_iterator(); voce.increment(errore)) {
    if (voce->path().filename().string().starts_with(kInizioNota)) file.push_back(voce->path());
  }
  std::vector<NotaLavoro> lasciate;
  for (const fs::path& uno : file) {
    auto blocco = BloccoFile::Prendi(uno, std::chrono::milliseconds(0));
    if (!blocco) continue;
    // Looked at under the lock: whoever held it may just have finished.
    auto contenuto = FileIni::Leggi(uno);
    if (!contenuto || contenuto.Valore().Testo().empty()) continue;
    lasciate.push_back(NotaLavoro(uno, std::move(contenuto).Valore(), std::move(blocco).Valore()));
  }
  return lasciate;
}

std::string NotaLavoro::Voce(std::string_view chiave) const {
  return contenuto_.Valore(kSezioneNota, chiave);
}

void NotaLavoro::Chiudi() {
  std::error_code ignorato;
  fs::remove(file_, ignorato);
  // Under the lock: who waits for it finds no note behind it.
  fs::remove(FileDelBlocco(file_), ignorato);
  blocco_.reset();
}

}  // namespace fenalto
