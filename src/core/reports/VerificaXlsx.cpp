#include "core/reports/VerificaXlsx.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <fstream>
#include <string>
#include <vector>

namespace fenalto::reports {

namespace {

// The head of a part in the archive: its length, and where its fields stand.
constexpr std::size_t kTesta = 30;
constexpr std::size_t kMetodo = 8;
constexpr std::size_t kCompressa = 18;
constexpr std::size_t kNome = 26;
constexpr std::size_t kAggiunte = 28;
constexpr unsigned kDeflate = 8;
constexpr std::size_t kPezzo = 65'536;
/// Enough of a part's beginning and end to see the name of its outermost element.
constexpr std::size_t kCapo = 512;
constexpr std::size_t kCoda = 128;

std::size_t NumeroDaByte(const std::array<unsigned char, kTesta>& testa, std::size_t dove,
                         std::size_t byte) {
  std::size_t n = 0;
  for (std::size_t i = byte; i > 0; --i) n = n << 8U | testa.at(dove + i - 1);
  return n;
}

/// Whether the text closes the element that it opens first, after the declaration.
bool XmlFinito(const std::string& capo, const std::string& coda) {
  std::size_t apre = capo.find('<');
  while (apre != std::string::npos && capo.substr(apre + 1).starts_with('?'))
    apre = capo.find('<', apre + 1);
  if (apre == std::string::npos) return false;
  const std::size_t fine = capo.find_first_of(" />", apre + 1);
  if (fine == std::string::npos) return false;
  const std::string chiude = "</" + capo.substr(apre + 1, fine - apre - 1) + ">";
  const std::size_t ultimo = coda.find_last_not_of("\r\n ");
  return ultimo != std::string::npos && coda.substr(0, ultimo + 1).ends_with(chiude);
}

class Flusso {
 public:
  Flusso() : pronto_(inflateInit2(&z_, -MAX_WBITS) == Z_OK) {}
  Flusso(const Flusso&) = delete;
  Flusso& operator=(const Flusso&) = delete;
  ~Flusso() {
    if (pronto_) inflateEnd(&z_);
  }

  /// Unpacks the next `compressa` bytes of the file and looks at both ends of what comes out.
  bool Verifica(std::ifstream& file, std::size_t compressa) {
    std::vector<unsigned char> entra(kPezzo);
    std::vector<unsigned char> esce(kPezzo);
    int stato = pronto_ ? Z_OK : Z_MEM_ERROR;
    while (compressa > 0 && stato == Z_OK) {
      const std::size_t quanti = std::min(compressa, kPezzo);
      // The file speaks in characters, the library in bytes.
      if (!file.read(reinterpret_cast<char*>(entra.data()), static_cast<std::streamsize>(quanti)))
        return false;
      compressa -= quanti;
      z_.next_in = entra.data();
      z_.avail_in = static_cast<uInt>(quanti);
      do {
        z_.next_out = esce.data();
        z_.avail_out = static_cast<uInt>(esce.size());
        stato = inflate(&z_, Z_NO_FLUSH);
        Guarda(esce, esce.size() - z_.avail_out);
      } while (stato == Z_OK && z_.avail_out == 0);
      if (stato == Z_BUF_ERROR) stato = Z_OK;  // it only waits for more
    }
    return stato == Z_STREAM_END && XmlFinito(capo_, coda_);
  }

 private:
  void Guarda(const std::vector<unsigned char>& uscito, std::size_t quanti) {
    const auto fine = uscito.begin() + static_cast<std::ptrdiff_t>(quanti);
    if (capo_.size() < kCapo)
      capo_.append(uscito.begin(), uscito.begin() + static_cast<std::ptrdiff_t>(
                                                        std::min(quanti, kCapo - capo_.size())));
    const std::size_t ultimi = std::min(quanti, kCoda);
    coda_.append(fine - static_cast<std::ptrdiff_t>(ultimi), fine);
    if (coda_.size() > kCoda) coda_.erase(0, coda_.size() - kCoda);
  }

  z_stream z_{};
  bool pronto_;
  std::string capo_;
  std::string coda_;
};

}  // namespace

bool XlsxIntero(const std::filesystem::path& percorso) {
  std::ifstream file(percorso, std::ios::binary);
  std::array<unsigned char, kTesta> testa{};
  std::size_t parti = 0;
  const auto leggi = [&](std::size_t quanti) {
    return static_cast<bool>(
        file.read(reinterpret_cast<char*>(testa.data()), static_cast<std::streamsize>(quanti)));
  };
  constexpr std::size_t kFirma = 4;
  constexpr std::size_t kFirmaParte = 0x04034B50;
  constexpr std::size_t kFirmaIndice = 0x02014B50;
  while (leggi(kFirma) && NumeroDaByte(testa, 0, kFirma) == kFirmaParte) {
    if (!file.seekg(-static_cast<std::streamoff>(kFirma), std::ios::cur) || !leggi(kTesta))
      return false;
    file.seekg(static_cast<std::streamoff>(NumeroDaByte(testa, kNome, 2) +
                                           NumeroDaByte(testa, kAggiunte, 2)),
               std::ios::cur);
    if (NumeroDaByte(testa, kMetodo, 2) != kDeflate) return false;
    if (!Flusso().Verifica(file, NumeroDaByte(testa, kCompressa, kFirma))) return false;
    ++parti;
  }
  return file && parti > 0 && NumeroDaByte(testa, 0, kFirma) == kFirmaIndice;
}

}  // namespace fenalto::reports
