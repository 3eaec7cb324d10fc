#include "core/reports/Sagoma.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <stdexcept>

#include "core/reports/TestoStampato.h"
#include "core/values/Lettere.h"

namespace fenalto::reports {

namespace {

constexpr std::string_view kParagrafo = "§";
constexpr std::string_view kImporto = "ç";
constexpr std::size_t kGruppo = 3;
constexpr std::size_t kDecimaliImporto = 4;
constexpr std::size_t kDataLunga = 10;

/// How many times `segno` stands at the beginning.
std::size_t Ripetizioni(std::string_view testo, std::string_view segno) {
  std::size_t n = 0;
  while (testo.substr(n * segno.size()).starts_with(segno)) ++n;
  return n;
}

/// A letter or a digit: a mark directly after it ends a word or its abbreviation.
bool DiParola(char32_t c) {
  constexpr char32_t kPrimaNonAscii = 0x80;
  return (c >= U'0' && c <= U'9') || (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z') ||
         c >= kPrimaNonAscii;
}

struct Numero {
  bool negativo = false;
  std::uint64_t intera = 0;
  std::uint64_t decimali = 0;  ///< ten-thousandths
};

/// The number of a value; nothing for one that is none or that no amount can hold.
std::optional<Numero> ComeNumero(const Valore& valore) {
  const auto grandezza = [](std::int64_t n) {
    const auto senzaSegno = static_cast<std::uint64_t>(n);
    return n < 0 ? 0 - senzaSegno : senzaSegno;
  };
  // Whole numbers go their own way: they reach further than amounts.
  if (valore.Tipo() == Tipo::Intero) {
    const std::int64_t n = valore.Intero();
    return Numero{n < 0, grandezza(n), 0};
  }
  if (valore.Tipo() == Tipo::Data || valore.Tipo() == Tipo::Booleano) return std::nullopt;
  try {
    const std::int64_t n = valore.Importo().Decimillesimi();
    const std::uint64_t g = grandezza(n);
    return Numero{n < 0, g / Importo::kScala, g % Importo::kScala};
  } catch (const std::domain_error&) {
    return std::nullopt;
  } catch (const FuoriCampo&) {
    return std::nullopt;
  }
}

/// Rounds to fewer decimals than four, halves away from zero.
void ArrotondaA(Numero& numero, std::size_t decimali) {
  if (decimali >= kDecimaliImporto) return;
  std::uint64_t passo = 1;
  for (std::size_t i = decimali; i < kDecimaliImporto; ++i) passo *= 10;
  numero.decimali = (numero.decimali + passo / 2) / passo * passo;
  if (numero.decimali == Importo::kScala) {
    numero.decimali = 0;
    ++numero.intera;
  }
}

void AccodaAsterischi(std::string& riga, std::size_t quanti) {
  riga.append(quanti, '*');
}

/// gg/mm/aa, or with the whole year.
std::string DataStampata(Data data, bool annoIntero) {
  std::string testo = data.Testo();
  constexpr std::size_t kSecolo = 6;
  if (!annoIntero && !testo.empty()) testo.erase(kSecolo, 2);
  return testo;
}

}  // namespace

Sagoma::Sagoma(std::string_view testo) {
  char32_t prima = U' ';
  while (!testo.empty()) {
    std::size_t letti = 0;
    if (const std::size_t n = Ripetizioni(testo, "$"); n > 0) {
      AggiungiTesto(n);
      letti = n;
      prima = U'0';  // a mark after a placeholder is text, as after a digit
    } else if (const std::size_t lunghi = Ripetizioni(testo, kParagrafo); lunghi > 0) {
      AggiungiTesto(lunghi);
      letti = lunghi * kParagrafo.size();
      prima = U'0';
    } else {
      const bool segno = testo.front() == '.' || testo.front() == ',';
      const bool inizia =
          testo.front() == '#' || (segno && testo.substr(1).starts_with('#') && !DiParola(prima));
      if (inizia) {
        letti = AggiungiNumero(testo);
        prima = U'0';
      } else {
        const lettere::Unita unita = lettere::Leggi(testo);
        AggiungiFisso(testo.substr(0, unita.byte));
        letti = unita.byte;
        prima = unita.carattere;
      }
    }
    testo.remove_prefix(letti);
  }
}

void Sagoma::AggiungiFisso(std::string_view testo) {
  if (pezzi_.empty() || pezzi_.back().genere != Genere::Fisso) pezzi_.emplace_back();
  const std::size_t quanti = AccodaPulito(pezzi_.back().fisso, testo);
  pezzi_.back().larghezza += quanti;
  larghezza_ += quanti;
}

void Sagoma::AggiungiTesto(std::size_t larghezza) {
  Pezzo pezzo;
  pezzo.genere = Genere::Testo;
  pezzo.larghezza = larghezza;
  pezzi_.push_back(std::move(pezzo));
  larghezza_ += larghezza;
  ++segnaposti_;
}

/// Takes the number picture at the beginning of `testo` and gives its length. A point belongs to it
/// only before a digit place, so that the full stop of a sentence stays.
std::size_t Sagoma::AggiungiNumero(std::string_view testo) {
  Pezzo pezzo;
  pezzo.genere = Genere::Numero;
  pezzo.unita = false;
  bool virgola = false;
  std::size_t i = 0;
  for (; i < testo.size(); ++i) {
    const char c = testo[i];
    if (c == '#') {
      if (virgola) {
        ++pezzo.decimali;
      } else {
        pezzo.unita = true;
      }
    } else if (c == '.' && !virgola && testo.substr(i + 1).starts_with('#')) {
      pezzo.migliaia = true;
    } else if (c == ',' && !virgola) {
      virgola = true;
    } else {
      break;
    }
  }
  pezzo.larghezza = i;
  larghezza_ += i;
  ++segnaposti_;
  pezzi_.push_back(std::move(pezzo));
  return i;
}

std::string Sagoma::Riempi(std::span<const Valore> campi) const {
  std::string riga;
  riga.reserve(larghezza_ + larghezza_ / 4);
  std::size_t n = 0;
  for (const Pezzo& pezzo : pezzi_) {
    if (pezzo.genere == Genere::Fisso) {
      riga += pezzo.fisso;
      continue;
    }
    if (n >= campi.size() || campi[n].Nullo()) {
      riga.append(pezzo.larghezza, ' ');
    } else if (pezzo.genere == Genere::Testo) {
      RiempiTesto(pezzo, campi[n], riga);
    } else {
      RiempiNumero(pezzo, campi[n], riga);
    }
    ++n;
  }
  return riga;
}

void Sagoma::RiempiTesto(const Pezzo& pezzo, const Valore& valore, std::string& riga) {
  std::size_t quanti = 0;
  if (valore.Tipo() == Tipo::Testo) {
    quanti = AccodaPulito(riga, valore.RifTesto(), pezzo.larghezza);
  } else if (valore.Tipo() == Tipo::Data) {
    quanti = AccodaPulito(riga, DataStampata(valore.Data(), pezzo.larghezza >= kDataLunga),
                          pezzo.larghezza);
  } else {
    const std::string testo = TestoStampato(valore);
    if (Numerico(valore) && testo.size() > pezzo.larghezza)
      return AccodaAsterischi(riga, pezzo.larghezza);
    quanti = AccodaPulito(riga, testo, pezzo.larghezza);
  }
  riga.append(pezzo.larghezza - quanti, ' ');
}

void Sagoma::RiempiNumero(const Pezzo& pezzo, const Valore& valore, std::string& riga) {
  const auto destra = [&](std::string_view testo, std::size_t caratteri) {
    if (caratteri > pezzo.larghezza) return AccodaAsterischi(riga, pezzo.larghezza);
    riga.append(pezzo.larghezza - caratteri, ' ');
    riga += testo;
  };
  std::optional<Numero> numero;
  const bool vuoto =
      valore.Tipo() == Tipo::Testo && valore.RifTesto().find_first_not_of(' ') == std::string::npos;
  if (!vuoto) numero = ComeNumero(valore);
  if (!numero) {
    std::string testo;
    const std::size_t quanti =
        AccodaPulito(testo, valore.Tipo() == Tipo::Data
                                ? DataStampata(valore.Data(), pezzo.larghezza >= kDataLunga)
                                : TestoStampato(valore));
    return vuoto ? destra("", 0) : destra(testo, quanti);
  }
  ArrotondaA(*numero, pezzo.decimali);

  // Written from the last digit to the first; the greatest number has 20 digits and 6 marks.
  std::array<char, 64> cifre{};
  std::size_t inizio = cifre.size();
  const std::size_t scritti = std::min(pezzo.decimali, kDecimaliImporto);
  const std::size_t zeri = pezzo.decimali - scritti;
  if (pezzo.decimali > 0) {
    std::uint64_t resto = numero->decimali;
    for (std::size_t i = kDecimaliImporto; i > 0; --i, resto /= 10)
      if (i <= scritti) cifre[--inizio] = static_cast<char>('0' + resto % 10);
    cifre[--inizio] = ',';
  }
  std::size_t gruppo = 0;
  for (std::uint64_t resto = numero->intera; resto > 0 || (gruppo == 0 && pezzo.unita);
       resto /= 10) {
    if (pezzo.migliaia && gruppo > 0 && gruppo % kGruppo == 0) cifre[--inizio] = '.';
    cifre[--inizio] = static_cast<char>('0' + resto % 10);
    ++gruppo;
  }
  if (numero->negativo && (numero->intera > 0 || numero->decimali > 0)) cifre[--inizio] = '-';
  const std::size_t lunghezza = cifre.size() - inizio + zeri;
  destra(std::string_view(cifre.data() + inizio, cifre.size() - inizio), lunghezza);
  if (lunghezza <= pezzo.larghezza) riga.append(zeri, '0');
}

std::string PictureImporto(std::string_view sagoma, bool euro) {
  const std::string_view maschera = euro ? " ###.###.###,###" : "###.###.###.###,";
  std::string nuova;
  nuova.reserve(sagoma.size());
  while (!sagoma.empty()) {
    const std::size_t n = Ripetizioni(sagoma, kImporto);
    if (n == 0) {
      const std::size_t prossimo = std::min(sagoma.find(kImporto), sagoma.size());
      nuova += sagoma.substr(0, prossimo);
      sagoma.remove_prefix(prossimo);
      continue;
    }
    if (n > maschera.size()) {
      nuova.append(n - maschera.size(), ' ').append(maschera);
    } else {
      nuova += maschera.substr(maschera.size() - n);
    }
    sagoma.remove_prefix(n * kImporto.size());
  }
  return nuova;
}

}  // namespace fenalto::reports
