#include "core/store/engine/sqlite/RestiFile.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

#include "core/store/engine/sqlite/BlocchiFile.h"

namespace fenalto::engine::sqlite {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kComune = "-mj";
constexpr std::size_t kCifreComune = 9;
constexpr std::string_view kGiornale = "-journal";

/// Whether the engine gave the file that name: the database's, the mark, nine hexadecimal digits.
bool Comune(std::string_view nome, std::string_view archivio) {
  if (!nome.starts_with(archivio)) return false;
  nome.remove_prefix(archivio.size());
  if (!nome.starts_with(kComune)) return false;
  nome.remove_prefix(kComune.size());
  return nome.size() == kCifreComune &&
         nome.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

/// A trial takes no longer than an opening.
bool Vecchio(const fs::directory_entry& voce) {
  std::error_code errore;
  const auto scritto = voce.last_write_time(errore);
  return !errore && scritto < fs::file_time_type::clock::now() - std::chrono::hours(1);
}

}  // namespace

RestiFile::RestiFile(const std::vector<fs::path>& archivi) {
  std::set<fs::path> cartelle;
  for (const fs::path& archivio : archivi) cartelle.insert(fs::absolute(archivio).parent_path());
  const std::string primo = archivi.front().filename().string();
  std::error_code errore;
  for (const fs::path& cartella : cartelle) {
    for (const auto& voce : fs::directory_iterator(cartella, errore)) {
      const std::string nome = voce.path().filename().string();
      if (Comune(nome, primo)) comuni_.push_back(voce.path());
      if (nome.ends_with(kGiornale)) giornali_.push_back(voce.path());
      if (nome.starts_with(kProvaBlocchi) && Vecchio(voce)) prove_.push_back(voce.path());
    }
  }
}

bool RestiFile::Nominato(const fs::path& comune) const {
  const std::string nome = comune.filename().string();
  return std::ranges::any_of(giornali_, [&nome](const fs::path& giornale) {
    constexpr std::streamoff kCoda = 65'536;
    std::ifstream flusso(giornale, std::ios::binary);
    // One that begins with zero, or is empty, was never synchronised: it isn't played back.
    if (flusso && flusso.peek() <= 0) return false;
    // The name stands at its end.
    flusso.seekg(0, std::ios::end);
    const std::streamoff lungo = flusso.tellg();
    flusso.seekg(std::max<std::streamoff>(0, lungo - kCoda));
    const std::string coda{std::istreambuf_iterator<char>(flusso), {}};
    return !flusso || coda.find(nome) != std::string::npos;
  });
}

void RestiFile::Togli() const {
  std::error_code ignorato;
  for (const fs::path& comune : comuni_) {
    if (!Nominato(comune)) fs::remove(comune, ignorato);
  }
  for (const fs::path& prova : prove_) fs::remove(prova, ignorato);
}

}  // namespace fenalto::engine::sqlite
