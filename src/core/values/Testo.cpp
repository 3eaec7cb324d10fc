#include "core/values/Testo.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "core/values/Lettere.h"

namespace fenalto {

namespace {

using lettere::Accoda;
using lettere::Byte;
using lettere::Leggi;
using lettere::Piega;
using lettere::Unita;

constexpr std::array<unsigned char, 128> kAsciiPiegato = [] {
  std::array<unsigned char, 128> tavola{};
  for (unsigned i = 0; i < tavola.size(); ++i)
    tavola[i] = static_cast<unsigned char>(i >= 'A' && i <= 'Z' ? i + 32 : i);
  return tavola;
}();

template <typename F>
std::string Trasforma(std::string_view testo, F trasforma) {
  std::string uscita;
  uscita.reserve(testo.size());
  while (!testo.empty()) {
    const Unita unita = Leggi(testo);
    testo.remove_prefix(unita.byte);
    Accoda(uscita, unita.valida ? trasforma(unita.carattere) : unita.carattere, unita.valida);
  }
  return uscita;
}

/// The bytes of SenzaMaiuscole(testo), one at a time and without allocating.
class FlussoPiegato {
 public:
  explicit FlussoPiegato(std::string_view testo) noexcept : testo_(testo) {}

  /// Next byte, or -1 at the end.
  int Prossimo() noexcept {
    if (posto_ < quanti_) return buffer_[posto_++];
    if (testo_.empty()) return -1;
    const unsigned char primo = Byte(testo_.front());
    if (primo < 0x80) {
      testo_.remove_prefix(1);
      return kAsciiPiegato[primo];
    }
    const Unita unita = Leggi(testo_);
    testo_.remove_prefix(unita.byte);
    if (!unita.valida) return primo;
    quanti_ = lettere::Codifica(Piega(unita.carattere), buffer_);
    posto_ = 1;
    return buffer_[0];
  }

 private:
  std::string_view testo_;
  std::array<unsigned char, 4> buffer_{};
  std::size_t posto_ = 0;
  std::size_t quanti_ = 0;
};

int ConfrontaLento(std::string_view a, std::string_view b) noexcept {
  FlussoPiegato flussoA(a);
  FlussoPiegato flussoB(b);
  for (;;) {
    const int x = flussoA.Prossimo();
    const int y = flussoB.Prossimo();
    if (x != y) return x < y ? -1 : 1;
    if (x < 0) return 0;
  }
}

constexpr std::uint64_t kAlti = 0x8080808080808080U;

std::uint64_t OttoByte(const char* p) noexcept {
  std::uint64_t parola = 0;
  std::memcpy(&parola, p, sizeof parola);
  return parola;
}

}  // namespace

std::string SenzaMaiuscole(std::string_view testo) {
  return Trasforma(testo, Piega);
}
std::string Maiuscolo(std::string_view testo) {
  return Trasforma(testo, lettere::Maiuscola);
}
std::string Minuscolo(std::string_view testo) {
  return Trasforma(testo, lettere::Minuscola);
}

std::string PerRicerca(std::string_view testo) {
  std::string uscita;
  uscita.reserve(testo.size());
  while (!testo.empty()) {
    const Unita unita = Leggi(testo);
    testo.remove_prefix(unita.byte);
    if (!unita.valida) {
      Accoda(uscita, unita.carattere, false);
    } else if (unita.carattere < 0x80) {
      uscita += static_cast<char>(kAsciiPiegato[unita.carattere]);
    } else {
      lettere::AccodaSpoglia(uscita, Piega(unita.carattere));
    }
  }
  return uscita;
}

namespace {

/// Eight plain ASCII letters at once, capitals made small.
constexpr std::uint64_t PiegaOtto(std::uint64_t parola) noexcept {
  constexpr std::uint64_t kUno = 0x0101010101010101U;
  // The high bit of each byte: at least 'A', and not past 'Z'.
  const std::uint64_t daA = parola + kUno * (0x80U - 'A');
  const std::uint64_t oltreZ = parola + kUno * (0x80U - 'Z' - 1);
  return parola | ((daA & ~oltreZ & kAlti) >> 2);
}

/// Folds what is plain ASCII into `piegato`; false on any other byte, or when it has no room.
template <std::size_t N>
bool PiegaAscii(std::string_view testo, std::array<char, N>& piegato) noexcept {
  if (testo.size() > N) return false;
  std::size_t i = 0;
  for (; i + sizeof(std::uint64_t) <= testo.size(); i += sizeof(std::uint64_t)) {
    std::uint64_t parola = OttoByte(testo.data() + i);
    if ((parola & kAlti) != 0) return false;
    parola = PiegaOtto(parola);
    std::memcpy(piegato.data() + i, &parola, sizeof parola);
  }
  for (; i < testo.size(); ++i) {
    const unsigned char c = Byte(testo[i]);
    if (c >= 0x80) return false;
    piegato[i] = static_cast<char>(kAsciiPiegato[c]);
  }
  return true;
}

constexpr std::size_t kTestoBreve = 256;

}  // namespace

bool InRicerca(std::string_view testo, std::string_view cercato) {
  std::array<char, kTestoBreve> piegato;  // NOLINT: filled as far as it is read
  if (PiegaAscii(testo, piegato)) {
    return std::string_view(piegato.data(), testo.size()).find(cercato) != std::string_view::npos;
  }
  return PerRicerca(testo).find(cercato) != std::string::npos;
}

bool IniziaRicerca(std::string_view testo, std::string_view cercato) {
  std::array<char, kTestoBreve> piegato;  // NOLINT: filled as far as it is read
  if (PiegaAscii(testo.substr(0, cercato.size()), piegato)) {
    // What follows a plain letter may still belong to it only as an accent, which is dropped.
    const std::size_t n = std::min(testo.size(), cercato.size());
    return std::string_view(piegato.data(), n) == cercato;
  }
  return PerRicerca(testo).starts_with(cercato);
}

int ConfrontaTesto(std::string_view a, std::string_view b) noexcept {
  const std::size_t comune = a.size() < b.size() ? a.size() : b.size();
  std::size_t i = 0;
  while (i < comune) {
    if (comune - i >= sizeof(std::uint64_t)) {
      const std::uint64_t parola = OttoByte(a.data() + i);
      if (parola == OttoByte(b.data() + i) && (parola & kAlti) == 0) {
        i += sizeof parola;
        continue;
      }
    }
    const unsigned char x = Byte(a[i]);
    const unsigned char y = Byte(b[i]);
    if ((x | y) >= 0x80) return ConfrontaLento(a.substr(i), b.substr(i));
    if (x != y) {
      const int differenza = int{kAsciiPiegato[x]} - int{kAsciiPiegato[y]};
      if (differenza != 0) return differenza < 0 ? -1 : 1;
    }
    ++i;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

bool UgualeTesto(std::string_view a, std::string_view b) noexcept {
  return ConfrontaTesto(a, b) == 0;
}

std::size_t HashTesto(std::string_view testo) noexcept {
  constexpr std::uint64_t kPrimo = 0x100000001b3U;
  std::uint64_t hash = 0xcbf29ce484222325U;
  std::size_t i = 0;
  for (; i < testo.size() && Byte(testo[i]) < 0x80; ++i)
    hash = (hash ^ kAsciiPiegato[Byte(testo[i])]) * kPrimo;
  FlussoPiegato flusso(testo.substr(i));
  for (int b = flusso.Prossimo(); b >= 0; b = flusso.Prossimo())
    hash = (hash ^ static_cast<std::uint64_t>(b)) * kPrimo;
  return static_cast<std::size_t>(hash ^ (hash >> 32));
}

std::string_view Rifila(std::string_view testo) noexcept {
  constexpr std::string_view kBianchi = " \t\r\n";
  constexpr std::string_view kFisso = "\xC2\xA0";
  for (;;) {
    if (!testo.empty() && kBianchi.find(testo.front()) != std::string_view::npos) {
      testo.remove_prefix(1);
    } else if (testo.starts_with(kFisso)) {
      testo.remove_prefix(kFisso.size());
    } else {
      break;
    }
  }
  for (;;) {
    if (!testo.empty() && kBianchi.find(testo.back()) != std::string_view::npos) {
      testo.remove_suffix(1);
    } else if (testo.ends_with(kFisso)) {
      testo.remove_suffix(kFisso.size());
    } else {
      return testo;
    }
  }
}

std::size_t LunghezzaTesto(std::string_view testo) noexcept {
  std::size_t n = 0;
  while (!testo.empty()) {
    testo.remove_prefix(Leggi(testo).byte);
    ++n;
  }
  return n;
}

std::string Mid(std::string_view testo, std::size_t inizio, std::size_t lunghezza) {
  for (; inizio > 1 && !testo.empty(); --inizio) testo.remove_prefix(Leggi(testo).byte);
  std::string_view resto = testo;
  for (; lunghezza > 0 && !resto.empty(); --lunghezza) resto.remove_prefix(Leggi(resto).byte);
  return std::string(testo.substr(0, testo.size() - resto.size()));
}

bool Utf8Valido(std::string_view testo) noexcept {
  while (!testo.empty()) {
    const Unita unita = Leggi(testo);
    if (!unita.valida) return false;
    testo.remove_prefix(unita.byte);
  }
  return true;
}

namespace {

/// Where the first character stands that is shown otherwise than it is; npos when none.
std::size_t Difetto(std::string_view testo) noexcept {
  for (std::string_view resto = testo; !resto.empty();) {
    const char c = resto.front();
    const bool piana = (c >= ' ' && c <= '~') || c == '\t' || c == '\n' || c == '\r';
    const Unita unita = piana ? Unita{Byte(c), 1, true} : Leggi(resto);
    if (!piana && (!unita.valida || lettere::Mostrabile(unita) != unita.carattere)) {
      return testo.size() - resto.size();
    }
    resto.remove_prefix(unita.byte);
  }
  return std::string_view::npos;
}

/// The digits that a text begins with, without zeros in front.
std::string_view PrimeCifre(std::string_view testo) noexcept {
  testo.remove_prefix(std::min(testo.find_first_not_of('0'), testo.size()));
  return testo.substr(0, testo.find_first_not_of("0123456789"));
}

}  // namespace

std::string Visibile(std::string_view testo) {
  std::string fuori;
  for (std::size_t i = Difetto(testo); i != std::string_view::npos; i = Difetto(testo)) {
    fuori += testo.substr(0, i);
    testo.remove_prefix(i);
    const Unita unita = Leggi(testo);
    Accoda(fuori, lettere::Mostrabile(unita), true);
    testo.remove_prefix(unita.byte);
  }
  return fuori += testo;
}

namespace {

std::string NomeDifetto(const Unita& unita) {
  std::array<char, 32> codice{};
  std::snprintf(codice.data(), codice.size(), unita.valida ? "U+%04X" : "%02X",
                static_cast<unsigned>(unita.carattere));
  return unita.valida ? "il carattere di controllo " + std::string(codice.data())
                      : "il byte " + std::string(codice.data()) + ", che non è un carattere";
}

}  // namespace

std::string DifettoTesto(std::string_view testo) {
  const std::size_t i = Difetto(testo);
  if (i == std::string_view::npos) return {};
  return "il testo contiene " + NomeDifetto(Leggi(testo.substr(i))) + ": toglierlo";
}

std::string SegnoRimasto(std::string_view originale, std::string_view digitato) {
  for (std::size_t i = Difetto(originale); i != std::string_view::npos; i = Difetto(originale)) {
    originale.remove_prefix(i);
    const Unita unita = Leggi(originale);
    std::string segno;
    Accoda(segno, lettere::Mostrabile(unita), true);
    if (digitato.find(segno) != std::string_view::npos) {
      return "il segno " + segno + " sta per " + NomeDifetto(unita) +
             ": toglierlo, o sostituirlo con quel che deve esserci";
    }
    originale.remove_prefix(unita.byte);
  }
  return {};
}

int ConfrontaNumeri(std::string_view a, std::string_view b) {
  const std::string_view x = PrimeCifre(a);
  const std::string_view y = PrimeCifre(b);
  if (x.size() != y.size()) return x.size() < y.size() ? -1 : 1;
  const int cifre = x.compare(y);
  return cifre != 0 ? cifre : ConfrontaTesto(a, b);
}

std::string DaLatin1(std::string_view testo) {
  // 0x80 to 0x9F of Windows-1252; the five places it leaves empty keep their control character.
  static constexpr std::array<char32_t, 32> kAlti1252 = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
      0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
  std::string uscita;
  uscita.reserve(testo.size());
  for (const char c : testo) {
    const unsigned char b = Byte(c);
    Accoda(uscita, b >= 0x80 && b < 0xA0 ? kAlti1252[b - 0x80U] : char32_t{b}, true);
  }
  return uscita;
}

}  // namespace fenalto
