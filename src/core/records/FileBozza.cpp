#include "core/records/FileBozza.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <utility>

namespace fenalto::records {
namespace {

namespace fs = std::filesystem;

constexpr char kTra = '\t';
constexpr char kFine = '\n';
constexpr mode_t kPrivato = 0600;
/// Records of one function that may wait at once.
constexpr int kMassimo = 20;
/// It is made anew when it has grown to so many times what it holds, and not for less than this.
constexpr std::size_t kVolte = 4;
constexpr std::size_t kMinimo = 64U << 10U;
constexpr std::size_t kCifre = 8;

std::string Controllo(std::string_view testo) {
  std::uint32_t somma = 2'166'136'261U;
  for (const char byte : testo) {
    somma = (somma ^ static_cast<unsigned char>(byte)) * 16'777'619U;
  }
  std::array<char, kCifre + 1> cifre{};
  std::snprintf(cifre.data(), cifre.size(), "%08x", somma);
  return cifre.data();
}

void Scrivi(std::string& riga, std::string_view testo) {
  for (const char lettera : testo) {
    switch (lettera) {
      case kTra:
        riga += "\\t";
        break;
      case kFine:
        riga += "\\n";
        break;
      case '\\':
        riga += "\\\\";
        break;
      default:
        riga += lettera;
    }
  }
}

std::string Letto(std::string_view scritto) {
  std::string testo;
  for (std::size_t i = 0; i < scritto.size(); ++i) {
    if (scritto[i] != '\\' || i + 1 == scritto.size()) {
      testo += scritto[i];
      continue;
    }
    const char segno = scritto[++i];
    testo += segno == 't' ? kTra : segno == 'n' ? kFine : segno;
  }
  return testo;
}

std::string Riga(std::string_view nome, const VoceBozza& voce) {
  std::string riga;
  Scrivi(riga, nome);
  riga += kTra;
  for (const std::string& testo : voce) {
    Scrivi(riga, testo);
    riga += kTra;
  }
  riga += Controllo(riga);
  riga += kFine;
  return riga;
}

/// A line without its end; false when it isn't whole.
bool Leggi(std::string_view riga, VociBozza& voci) {
  if (riga.size() <= kCifre) return false;
  const std::string_view testo = riga.substr(0, riga.size() - kCifre);
  if (testo.back() != kTra || Controllo(testo) != riga.substr(testo.size())) return false;
  VoceBozza campi;
  for (std::size_t da = 0; da < testo.size();) {
    const std::size_t a = testo.find(kTra, da);
    campi.push_back(Letto(testo.substr(da, a - da)));
    da = a + 1;
  }
  std::string nome = std::move(campi.front());
  campi.erase(campi.begin());
  voci.insert_or_assign(std::move(nome), std::move(campi));
  return true;
}

}  // namespace

VociBozza LeggiBozza(std::string_view testo) {
  VociBozza voci;
  while (!testo.empty()) {
    const std::size_t fine = std::min(testo.find(kFine), testo.size());
    Leggi(testo.substr(0, fine), voci);
    testo.remove_prefix(std::min(fine + 1, testo.size()));
  }
  return voci;
}

FileBozza::FileBozza(fs::path cartella, std::string nome)
    : cartella_(std::move(cartella)), nome_(std::move(nome)) {}

FileBozza::~FileBozza() {
  if (descrittore_ >= 0) ::close(descrittore_);
}

fs::path FileBozza::File(int numero) const {
  return cartella_ / (nome_ + "-" + std::to_string(numero) + ".txt");
}

void FileBozza::Metti(const std::string& nome, const VoceBozza& voce) {
  if (spento_) return;
  std::string riga = Riga(nome, voce);
  auto [posto, nuova] = righe_.try_emplace(nome);
  if (!nuova && posto->second == riga) return;
  inAttesa_ += riga;
  posto->second = std::move(riga);
}

bool FileBozza::Apri() {
  std::error_code errore;
  // A company that was taken away doesn't come back for this.
  if (!fs::is_directory(cartella_.parent_path(), errore)) return false;
  if (fs::create_directory(cartella_, errore)) {
    fs::permissions(cartella_, fs::perms::owner_all, errore);
  }
  for (int numero = 1; numero <= kMassimo; ++numero) {
    const fs::path file = File(numero);
    if (fs::exists(file, errore)) continue;
    auto preso = BloccoFile::Prendi(file, std::chrono::milliseconds(0));
    // Whoever had it may have begun it meanwhile.
    if (!preso || fs::exists(file, errore)) continue;
    descrittore_ =
        ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, kPrivato);
    if (descrittore_ < 0) return false;
    file_ = file;
    blocco_.emplace(std::move(preso).Valore());
    return true;
  }
  return false;
}

bool FileBozza::Scrivi(std::string_view testo) const {
  while (!testo.empty()) {
    const auto scritti = ::write(descrittore_, testo.data(), testo.size());
    if (scritti <= 0) return false;
    testo.remove_prefix(static_cast<std::size_t>(scritti));
  }
  return true;
}

/// Only what counts, in another file that takes the place of this one.
void FileBozza::Rifai() {
  const fs::path accanto = file_.string() + ".tmp";
  const int nuovo =
      ::open(accanto.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, kPrivato);
  if (nuovo < 0) return;
  std::string testo;
  for (const auto& [nome, riga] : righe_) testo += riga;
  const int vecchio = std::exchange(descrittore_, nuovo);
  std::error_code errore;
  bool fatto = Scrivi(testo);
  if (fatto) {
    fs::rename(accanto, file_, errore);
    fatto = !errore;
  }
  if (fatto) {
    ::close(vecchio);
    scritti_ = testo.size();
  } else {
    ::close(std::exchange(descrittore_, vecchio));
    fs::remove(accanto, errore);
  }
  alRifacimento_ = testo.size();
}

void FileBozza::Scarica() noexcept {
  if (spento_ || inAttesa_.empty()) return;
  try {
    if (descrittore_ < 0 && !Apri()) {
      spento_ = true;
      return;
    }
    spento_ = !Scrivi(inAttesa_);
    scritti_ += inAttesa_.size();
    inAttesa_.clear();
    if (scritti_ > kMinimo && scritti_ > kVolte * alRifacimento_) Rifai();
  } catch (const std::exception&) {
    spento_ = true;
  }
}

void FileBozza::Butta() noexcept {
  if (descrittore_ >= 0) {
    ::close(std::exchange(descrittore_, -1));
    std::error_code errore;
    fs::remove(file_, errore);
  }
  blocco_.reset();
  righe_.clear();
  inAttesa_.clear();
  scritti_ = alRifacimento_ = 0;
  spento_ = false;
}

std::vector<FileBozza::Lasciato> FileBozza::Lasciati() const {
  std::vector<Lasciato> lasciati;
  std::error_code errore;
  if (!fs::is_directory(cartella_, errore)) return lasciati;
  for (int numero = 1; numero <= kMassimo; ++numero) {
    const fs::path file = File(numero);
    if (!fs::exists(file, errore)) continue;
    auto preso = BloccoFile::Prendi(file, std::chrono::milliseconds(0));
    if (!preso || !fs::exists(file, errore)) continue;
    const auto testo = LeggiFileByte(file);
    if (!testo) continue;
    lasciati.push_back({file, std::move(preso).Valore(), LeggiBozza(testo.Valore())});
  }
  return lasciati;
}

}  // namespace fenalto::records
