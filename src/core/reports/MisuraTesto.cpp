#include "core/reports/MisuraTesto.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "core/values/Lettere.h"
#include "core/values/Testo.h"

namespace fenalto::reports {
namespace {

constexpr char32_t kDa = 0x20;
constexpr char32_t kFinoA = 0x100;
/// Parts of the type's size that the tables count in.
constexpr std::int64_t kParti = 2048;
/// Of a letter that the tables don't have.
constexpr std::int64_t kIgnota = 1679;
/// Of every letter of a fixed face.
constexpr std::int64_t kFissa = 1229;

/// Widths of the letters of Liberation Sans Narrow.
constexpr std::array<std::uint16_t, kFinoA - kDa> kNormali = {
    467,  467,  596,  934,  934,  1493, 1120, 322,  559,  559,  653,  981,  467,  559,  467,  467,
    934,  934,  934,  934,  934,  934,  934,  934,  934,  934,  467,  467,  981,  981,  981,  934,
    1704, 1120, 1120, 1212, 1212, 1120, 1026, 1307, 1212, 467,  840,  1120, 934,  1399, 1212, 1307,
    1120, 1307, 1212, 1120, 1026, 1212, 1120, 1585, 1120, 1120, 1026, 467,  467,  467,  788,  934,
    559,  934,  934,  840,  934,  934,  467,  934,  934,  373,  373,  840,  373,  1399, 934,  934,
    934,  934,  559,  840,  467,  934,  840,  1212, 840,  840,  840,  561,  436,  561,  981,  467,
    467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,
    467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,
    467,  559,  934,  934,  934,  934,  436,  934,  559,  1237, 621,  934,  981,  559,  1237, 559,
    819,  1124, 559,  559,  559,  934,  901,  557,  559,  559,  612,  934,  1401, 1401, 1401, 1026,
    1120, 1120, 1120, 1120, 1120, 1120, 1679, 1212, 1120, 1120, 1120, 1120, 467,  467,  467,  467,
    1212, 1212, 1307, 1307, 1307, 1307, 1307, 981,  1307, 1212, 1212, 1212, 1212, 1120, 1120, 1026,
    934,  934,  934,  934,  934,  934,  1493, 840,  934,  934,  934,  934,  467,  467,  467,  467,
    934,  934,  934,  934,  934,  934,  934,  1124, 1026, 934,  934,  934,  934,  840,  934,  840};

constexpr std::array<std::uint16_t, kFinoA - kDa> kGrassetti = {
    467,  559,  797,  934,  934,  1493, 1212, 399,  559,  559,  653,  981,  467,  559,  467,  467,
    934,  934,  934,  934,  934,  934,  934,  934,  934,  934,  559,  559,  981,  981,  981,  1026,
    1638, 1212, 1212, 1212, 1212, 1120, 1026, 1307, 1212, 467,  934,  1212, 1026, 1399, 1212, 1307,
    1120, 1307, 1212, 1120, 1026, 1212, 1120, 1585, 1120, 1120, 1026, 559,  467,  559,  981,  934,
    559,  934,  1026, 934,  1026, 934,  559,  1026, 1026, 467,  467,  934,  467,  1493, 1026, 1026,
    1026, 1026, 653,  934,  559,  1026, 934,  1307, 934,  934,  840,  653,  471,  653,  981,  467,
    467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,
    467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,  467,
    467,  559,  934,  934,  934,  934,  471,  934,  559,  1237, 621,  934,  981,  559,  1237, 559,
    819,  1124, 559,  559,  559,  1026, 934,  559,  559,  559,  612,  934,  1401, 1401, 1401, 1026,
    1212, 1212, 1212, 1212, 1212, 1212, 1679, 1212, 1120, 1120, 1120, 1120, 467,  467,  467,  467,
    1212, 1212, 1307, 1307, 1307, 1307, 1307, 981,  1307, 1212, 1212, 1212, 1212, 1120, 1120, 1026,
    934,  934,  934,  934,  934,  934,  1493, 934,  934,  934,  934,  934,  467,  467,  467,  467,
    1026, 1026, 1026, 1026, 1026, 1026, 1026, 1124, 1026, 1026, 1026, 1026, 1026, 934,  1026, 934};

enum class Famiglia { Stretta, Fissa, Altra };

Famiglia FamigliaDi(std::string_view nome) {
  for (const char* stretta : {"Arial Narrow", "Liberation Sans Narrow"}) {
    if (UgualeTesto(nome, stretta)) return Famiglia::Stretta;
  }
  for (const char* fissa : {"Courier New", "Liberation Mono"}) {
    if (UgualeTesto(nome, fissa)) return Famiglia::Fissa;
  }
  return Famiglia::Altra;
}

/// Adds up letters of a face.
class Metro {
 public:
  explicit Metro(const Carattere& carattere)
      : famiglia_(FamigliaDi(carattere.famiglia)),
        letti_(carattere.grassetto ? kGrassetti : kNormali),
        corpo_(carattere.corpo) {}

  [[nodiscard]] std::int64_t Lettera(char32_t c) const {
    if (famiglia_ == Famiglia::Fissa) return kFissa;
    return c >= kDa && c < kFinoA ? letti_.at(c - kDa) : kIgnota;
  }
  /// Parts into hundredths of a millimetre, upwards.
  [[nodiscard]] std::int64_t Misura(std::int64_t parti) const {
    // The face that isn't narrow is as much wider as this; 2540 hundredths make 72 points.
    constexpr std::int64_t kLarga = 125;
    constexpr std::int64_t kCento = 100;
    const std::int64_t fattore = famiglia_ == Famiglia::Altra ? kLarga : kCento;
    const std::int64_t divisore = kParti * 72 * kCento * kCento;
    return (parti * corpo_ * 2540 * fattore + divisore - 1) / divisore;
  }

 private:
  Famiglia famiglia_;
  const std::array<std::uint16_t, kFinoA - kDa>& letti_;
  std::int64_t corpo_;
};

/// Bytes of `testo` that a line holds: as many letters as fit (one at least), back to the last
/// blank.
std::size_t Entrano(std::string_view testo, const Metro& metro, std::int64_t larghezza) {
  std::int64_t parti = 0;
  std::size_t blank = 0;
  for (std::size_t i = 0; i < testo.size();) {
    const lettere::Unita unita = lettere::Leggi(testo.substr(i));
    const bool spazio = unita.carattere == U' ' || unita.carattere == U'\t';
    if (spazio) blank = i;
    parti += metro.Lettera(unita.carattere);
    if (!spazio && metro.Misura(parti) > larghezza) {
      if (blank > 0) return blank;
      return std::max(i, unita.byte);
    }
    i += unita.byte;
  }
  return testo.size();
}

}  // namespace

int LarghezzaTesto(std::string_view testo, const Carattere& carattere) {
  const Metro metro(carattere);
  std::int64_t parti = 0;
  while (!testo.empty()) {
    const lettere::Unita unita = lettere::Leggi(testo);
    parti += metro.Lettera(unita.carattere);
    testo.remove_prefix(unita.byte);
  }
  return static_cast<int>(metro.Misura(parti));
}

std::vector<std::string> InLarghezza(std::string_view testo, int larghezza,
                                     const Carattere& carattere) {
  const Metro metro(carattere);
  const std::size_t vuoti = std::min(testo.find_first_not_of(' '), testo.size());
  const std::string rientro(vuoti, ' ');
  std::int64_t largo = larghezza - LarghezzaTesto(rientro, carattere);
  // Devices round what they measure.
  largo -= largo / 200;
  std::string_view resto = Rifila(testo);
  std::vector<std::string> righe;
  do {
    const std::size_t quanti = Entrano(resto, metro, largo);
    righe.push_back(rientro + std::string(Rifila(resto.substr(0, quanti))));
    resto = Rifila(resto.substr(quanti));
  } while (!resto.empty());
  return righe;
}

}  // namespace fenalto::reports
