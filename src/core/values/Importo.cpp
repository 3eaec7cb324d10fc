#include "core/values/Importo.h"

#include <charconv>

#include "core/values/Intero128.h"
#include "core/values/Lettere.h"

namespace fenalto {

using lettere::Cifra;

namespace {

constexpr int kDecimali = 4;

}  // namespace

Importo Importo::DaUnita(std::int64_t n) {
  return ImportoDa128(Intero128{n} * kScala);
}

std::optional<Importo> Importo::DaTesto(std::string_view testo) {
  const bool negativo = !testo.empty() && testo.front() == '-';
  if (negativo) testo.remove_prefix(1);
  Intero128 n = 0;
  std::size_t i = 0;
  // Twenty digits stay far below the range of 128 bits; more than that is out of range anyway,
  // leading zeros apart.
  constexpr Intero128 kTroppo = Intero128{1} << 80;
  for (; i < testo.size() && Cifra(testo[i]); ++i)
    if (n < kTroppo) n = n * 10 + (testo[i] - '0');
  if (i == 0) return std::nullopt;
  int decimali = 0;
  if (i < testo.size()) {
    if (testo[i] != '.') return std::nullopt;
    for (++i; i < testo.size() && Cifra(testo[i]) && decimali < kDecimali; ++i, ++decimali)
      n = n * 10 + (testo[i] - '0');
    if (decimali == 0 || i < testo.size()) return std::nullopt;
  }
  for (; decimali < kDecimali; ++decimali) n *= 10;
  if (negativo) n = -n;
  if (n > std::numeric_limits<std::int64_t>::max() || n < std::numeric_limits<std::int64_t>::min())
    return std::nullopt;
  return Importo(static_cast<std::int64_t>(n));
}

std::string Importo::Testo() const {
  // Sign, 15 digits, point and four decimals.
  char cifre[24];
  // The magnitude goes unsigned, where the smallest amount has its opposite.
  const auto valore = static_cast<std::uint64_t>(n_);
  const std::uint64_t grandezza = n_ < 0 ? 0 - valore : valore;
  char* p = cifre;
  if (n_ < 0) *p++ = '-';
  p = std::to_chars(p, cifre + sizeof cifre, grandezza / kScala).ptr;
  if (auto resto = static_cast<unsigned>(grandezza % kScala); resto != 0) {
    *p++ = '.';
    for (unsigned peso = kScala / 10; resto != 0; peso /= 10) {
      *p++ = static_cast<char>('0' + resto / peso);
      resto %= peso;
    }
  }
  return {cifre, p};
}

Importo Importo::Assoluto() const {
  return n_ < 0 ? -*this : *this;
}

std::int64_t Importo::ParteIntera() const {
  const std::int64_t q = n_ / kScala;
  return n_ % kScala < 0 ? q - 1 : q;
}

Importo Importo::operator-() const {
  if (n_ == std::numeric_limits<std::int64_t>::min()) throw FuoriCampo();
  return Importo(-n_);
}

Importo& Importo::operator+=(Importo altro) {
  std::int64_t somma = 0;
  if (__builtin_add_overflow(n_, altro.n_, &somma)) throw FuoriCampo();
  n_ = somma;
  return *this;
}

Importo& Importo::operator-=(Importo altro) {
  std::int64_t differenza = 0;
  if (__builtin_sub_overflow(n_, altro.n_, &differenza)) throw FuoriCampo();
  n_ = differenza;
  return *this;
}

Importo Importo::Per(Importo altro) const {
  return ImportoDa128(QuozienteVicino(Intero128{n_} * altro.n_, kScala));
}

Importo Importo::Diviso(Importo altro) const {
  if (altro.n_ == 0) throw std::domain_error("divisione per zero");
  const Intero128 n = Intero128{n_} * kScala;
  const Intero128 d = altro.n_;
  return ImportoDa128(d > 0 ? QuozienteVicino(n, d) : QuozienteVicino(-n, -d));
}

Importo Importo::Percento(Importo percento) const {
  return ImportoDa128(QuozienteVicino(Intero128{n_} * percento.n_, Intero128{kScala} * 100));
}

}  // namespace fenalto
