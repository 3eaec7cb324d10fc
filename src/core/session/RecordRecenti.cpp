#include "core/session/RecordRecenti.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <fstream>
#include <sstream>

#include "core/values/Testo.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

constexpr char kTra = '\t';

/// The station's name as a file may be called.
std::string NomeFileStazione(const std::string& stazione) {
  std::string nome = stazione.empty() ? "stazione" : stazione;
  for (char& lettera : nome) {
    const auto byte = static_cast<unsigned char>(lettera);
    if (std::isalnum(byte) == 0 && lettera != '-' && lettera != '_') lettera = '_';
  }
  return nome + ".txt";
}

/// Without what would part fields or lines.
std::string Pulito(std::string testo) {
  std::replace_if(
      testo.begin(), testo.end(),
      [](char lettera) { return static_cast<unsigned char>(lettera) < ' '; }, ' ');
  return testo;
}

bool Stesso(const Rinvio& a, const Rinvio& b) {
  return UgualeTesto(a.funzione, b.funzione) && UgualeTesto(a.codice, b.codice) &&
         a.anno == b.anno && UgualeTesto(a.classe, b.classe);
}

}  // namespace

RecordRecenti::RecordRecenti(const fs::path& cartella, const std::string& stazione)
    : file_(cartella / NomeFileStazione(stazione)) {
  Leggi();
}

void RecordRecenti::Leggi() {
  std::ifstream file(file_);
  for (std::string riga; std::getline(file, riga);) {
    std::istringstream campi(riga);
    std::string utente;
    Rinvio record;
    std::string anno;
    std::getline(campi, utente, kTra);
    std::getline(campi, record.funzione, kTra);
    std::getline(campi, record.codice, kTra);
    std::getline(campi, anno, kTra);
    std::getline(campi, record.classe, kTra);
    std::from_chars(anno.data(), anno.data() + anno.size(), record.anno);
    if (!record.Vuoto() && !record.codice.empty()) record_.emplace_back(utente, record);
  }
}

void RecordRecenti::Aggiungi(const std::string& utente, const Rinvio& record) {
  const auto suo = [&](const auto& uno) { return UgualeTesto(uno.first, utente); };
  if (const auto primo = std::find_if(record_.begin(), record_.end(), suo);
      primo != record_.end() && Stesso(primo->second, record)) {
    return;
  }
  std::erase_if(record_, [&](const auto& uno) { return suo(uno) && Stesso(uno.second, record); });
  record_.insert(record_.begin(), {utente, record});
  std::size_t suoi = 0;
  std::erase_if(record_, [&](const auto& uno) { return suo(uno) && ++suoi > kTenuti; });
  Scrivi();
}

std::vector<Rinvio> RecordRecenti::Di(const std::string& utente) const {
  std::vector<Rinvio> suoi;
  for (const auto& [chi, record] : record_) {
    if (UgualeTesto(chi, utente)) suoi.push_back(record);
  }
  return suoi;
}

void RecordRecenti::Scrivi() const {
  std::error_code errore;
  // A company that was taken away doesn't come back for this.
  if (!fs::is_directory(file_.parent_path().parent_path(), errore)) return;
  fs::create_directory(file_.parent_path(), errore);
  const fs::path accanto = file_.string() + "." + std::to_string(getpid()) + ".tmp";
  {
    std::ofstream file(accanto, std::ios::trunc);
    for (const auto& [utente, r] : record_) {
      file << Pulito(utente) << kTra << Pulito(r.funzione) << kTra << Pulito(r.codice) << kTra
           << r.anno << kTra << Pulito(r.classe) << '\n';
    }
    if (file) {
      file.close();
      fs::rename(accanto, file_, errore);
      if (!errore) return;
    }
  }
  fs::remove(accanto, errore);
}

}  // namespace fenalto
