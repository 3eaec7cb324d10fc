#include "core/values/Data.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>

#include "core/values/Testo.h"

namespace fenalto {

namespace {

struct Gma {
  int giorno;
  int mese;
  int anno;
};

constexpr int kAnnoMinimo = 1;
constexpr int kAnnoMassimo = 9999;

// A count of days since 1/3/0000 makes the leap day the last of its year, and every four centuries
// alike.
constexpr std::int32_t kGiorniQuattroSecoli = 146'097;

constexpr std::int32_t GiorniDaMarzoZero(Gma gma) {
  const int anno = gma.mese > 2 ? gma.anno : gma.anno - 1;
  const int mese = gma.mese > 2 ? gma.mese - 3 : gma.mese + 9;
  return anno * 365 + anno / 4 - anno / 100 + anno / 400 + (153 * mese + 2) / 5 + gma.giorno - 1;
}

constexpr std::int32_t kOrigine = GiorniDaMarzoZero({30, 12, 1899});
constexpr std::int32_t kGiornoMinimo = GiorniDaMarzoZero({1, 1, kAnnoMinimo}) - kOrigine;
constexpr std::int32_t kGiornoMassimo = GiorniDaMarzoZero({31, 12, kAnnoMassimo}) - kOrigine;

constexpr Gma Scomponi(std::int32_t giorni) {
  const std::int32_t da0 = giorni + kOrigine;
  const std::int32_t era = da0 / kGiorniQuattroSecoli;
  const std::int32_t nellEra = da0 % kGiorniQuattroSecoli;
  const std::int32_t annoEra =
      (nellEra - nellEra / 1'460 + nellEra / 36'524 - nellEra / 146'096) / 365;
  const std::int32_t nellAnno = nellEra - (365 * annoEra + annoEra / 4 - annoEra / 100);
  const std::int32_t mese = (5 * nellAnno + 2) / 153;
  const int giorno = nellAnno - (153 * mese + 2) / 5 + 1;
  const int anno = annoEra + era * 400 + (mese >= 10 ? 1 : 0);
  return {giorno, mese < 10 ? mese + 3 : mese - 9, anno};
}

constexpr std::array<std::string_view, 12> kMesi = {
    "gennaio", "febbraio", "marzo",     "aprile",  "maggio",   "giugno",
    "luglio",  "agosto",   "settembre", "ottobre", "novembre", "dicembre"};

bool SoloCifre(std::string_view testo) {
  return !testo.empty() && std::ranges::all_of(testo, [](char c) { return c >= '0' && c <= '9'; });
}

/// The number of a few digits; the caller has checked that they are digits.
int Numero(std::string_view cifre) {
  int n = 0;
  std::from_chars(cifre.data(), cifre.data() + cifre.size(), n);
  return n;
}

void Accoda(std::string& testo, int numero, std::size_t cifre) {
  const std::string n = std::to_string(numero);
  testo.append(cifre > n.size() ? cifre - n.size() : 0, '0').append(n);
}

constexpr int kMancante = -1;

/// Parts of a typed date, kMancante where nothing was typed.
struct Digitata {
  int giorno = kMancante;
  int mese = kMancante;
  int anno = kMancante;
};

std::optional<int> AnnoDigitato(std::string_view cifre) {
  constexpr int kPrimoDelNovecento = 80;
  const int n = Numero(cifre);
  if (cifre.size() == 4) return n;
  if (cifre.size() == 2) return n < kPrimoDelNovecento ? 2000 + n : 1900 + n;
  return std::nullopt;
}

/// "15", "1503", "150324", "15032024".
std::optional<Digitata> LeggiAttaccata(std::string_view cifre) {
  if (cifre.size() <= 2) return Digitata{Numero(cifre), kMancante, kMancante};
  if (cifre.size() < 4) return std::nullopt;
  const Digitata giornoMese{Numero(cifre.substr(0, 2)), Numero(cifre.substr(2, 2)), kMancante};
  if (cifre.size() == 4) return giornoMese;
  const auto anno = AnnoDigitato(cifre.substr(4));
  if (!anno) return std::nullopt;
  return Digitata{giornoMese.giorno, giornoMese.mese, *anno};
}

/// "15/3", "15/3/24", "15-03-2024", "15.3.2024": one separator throughout.
std::optional<Digitata> LeggiSeparata(std::string_view testo, char separatore) {
  std::array<std::string_view, 3> parti;
  std::size_t quante = 0;
  for (bool ancora = true; ancora; ++quante) {
    if (quante == parti.size()) return std::nullopt;
    const std::size_t fine = testo.find(separatore);
    ancora = fine != std::string_view::npos;
    parti[quante] = testo.substr(0, fine);
    if (ancora) testo.remove_prefix(fine + 1);
    if (!SoloCifre(parti[quante])) return std::nullopt;
  }
  if (parti[0].size() > 2 || parti[1].size() > 2) return std::nullopt;
  Digitata letta{Numero(parti[0]), Numero(parti[1]), kMancante};
  if (quante == 3) {
    const auto anno = AnnoDigitato(parti[2]);
    if (!anno) return std::nullopt;
    letta.anno = *anno;
  }
  return letta;
}

Errore GiornoInesistente(const Gma& gma) {
  if (gma.anno < kAnnoMinimo || gma.anno > kAnnoMassimo)
    return {"anno " + std::to_string(gma.anno) + ": gli anni vanno da 1 a 9999"};
  if (gma.mese < 1 || gma.mese > 12)
    return {"mese " + std::to_string(gma.mese) + ": i mesi vanno da 1 a 12"};
  std::string testo;
  Accoda(testo, gma.giorno, 2);
  testo += '/';
  Accoda(testo, gma.mese, 2);
  testo.append(": ").append(kMesi[static_cast<std::size_t>(gma.mese - 1)]);
  testo.append(" ").append(std::to_string(gma.anno)).append(" ha ");
  return {testo + std::to_string(GiorniDelMese(gma.mese, gma.anno)) + " giorni"};
}

}  // namespace

bool Bisestile(int anno) {
  return anno % 4 == 0 && (anno % 100 != 0 || anno % 400 == 0);
}

int GiorniDelMese(int mese, int anno) {
  if (mese < 1 || mese > 12) throw std::out_of_range("mese fuori da 1..12");
  if (mese == 2) return Bisestile(anno) ? 29 : 28;
  return mese == 4 || mese == 6 || mese == 9 || mese == 11 ? 30 : 31;
}

Data Data::DaGiorni(std::int32_t giorni) {
  if (giorni < kGiornoMinimo || giorni > kGiornoMassimo)
    throw std::out_of_range("data fuori dagli anni da 1 a 9999");
  return Data(giorni);
}

std::optional<Data> Data::DaGma(int giorno, int mese, int anno) {
  if (anno < kAnnoMinimo || anno > kAnnoMassimo || mese < 1 || mese > 12 || giorno < 1 ||
      giorno > GiorniDelMese(mese, anno))
    return std::nullopt;
  return Data(GiorniDaMarzoZero({giorno, mese, anno}) - kOrigine);
}

std::optional<Data> Data::DaIso(std::string_view testo) {
  if (testo.size() != 10 || testo[4] != '-' || testo[7] != '-') return std::nullopt;
  const std::string_view anno = testo.substr(0, 4);
  const std::string_view mese = testo.substr(5, 2);
  const std::string_view giorno = testo.substr(8, 2);
  if (!SoloCifre(anno) || !SoloCifre(mese) || !SoloCifre(giorno)) return std::nullopt;
  return DaGma(Numero(giorno), Numero(mese), Numero(anno));
}

int Data::Giorno() const {
  return Scomponi(giorni_).giorno;
}
int Data::Mese() const {
  return Scomponi(giorni_).mese;
}
int Data::Anno() const {
  return Scomponi(giorni_).anno;
}

int Data::GiornoSettimana() const {
  // The null date was a Saturday.
  return ((giorni_ + 5) % 7 + 7) % 7 + 1;
}

Data Data::PiuGiorni(std::int32_t n) const {
  const std::int64_t giorni = std::int64_t{giorni_} + n;
  if (giorni < kGiornoMinimo || giorni > kGiornoMassimo)
    throw std::out_of_range("data fuori dagli anni da 1 a 9999");
  return Data(static_cast<std::int32_t>(giorni));
}

Data Data::PiuMesi(std::int32_t n) const {
  const Gma gma = Scomponi(giorni_);
  const std::int64_t mesi = std::int64_t{gma.anno} * 12 + gma.mese - 1 + n;
  constexpr std::int64_t kMeseMinimo = kAnnoMinimo * 12;
  constexpr std::int64_t kMeseOltre = (kAnnoMassimo + 1) * 12;
  if (mesi < kMeseMinimo || mesi >= kMeseOltre)
    throw std::out_of_range("data fuori dagli anni da 1 a 9999");
  const int anno = static_cast<int>(mesi / 12);
  const int mese = static_cast<int>(mesi % 12) + 1;
  const int giorno = std::min(gma.giorno, GiorniDelMese(mese, anno));
  return Data(GiorniDaMarzoZero({giorno, mese, anno}) - kOrigine);
}

Data Data::FineMese() const {
  const Gma gma = Scomponi(giorni_);
  return Data(giorni_ + GiorniDelMese(gma.mese, gma.anno) - gma.giorno);
}

std::string Data::Iso() const {
  std::string testo;
  if (Nulla()) return testo;
  const Gma gma = Scomponi(giorni_);
  Accoda(testo, gma.anno, 4);
  testo += '-';
  Accoda(testo, gma.mese, 2);
  testo += '-';
  Accoda(testo, gma.giorno, 2);
  return testo;
}

std::string Data::Testo() const {
  std::string testo;
  if (Nulla()) return testo;
  const Gma gma = Scomponi(giorni_);
  Accoda(testo, gma.giorno, 2);
  testo += '/';
  Accoda(testo, gma.mese, 2);
  testo += '/';
  Accoda(testo, gma.anno, 4);
  return testo;
}

Esito<Data> LeggiData(std::string_view testo, int annoSessione, Data oggi) {
  testo = Rifila(testo);
  if (testo.empty()) return Data();
  const std::size_t separatore = testo.find_first_of("/-.");
  std::optional<Digitata> letta;
  if (separatore != std::string_view::npos) {
    letta = LeggiSeparata(testo, testo[separatore]);
  } else if (SoloCifre(testo)) {
    letta = LeggiAttaccata(testo);
  }
  if (!letta) {
    return Errore{"\"" + std::string(testo) +
                  "\" non è una data: scrivere ad esempio 15, 1503, 15/3 o 15/3/2024"};
  }
  const Gma gma{letta->giorno, letta->mese == kMancante ? oggi.Mese() : letta->mese,
                letta->anno == kMancante ? annoSessione : letta->anno};
  if (const auto data = Data::DaGma(gma.giorno, gma.mese, gma.anno)) return *data;
  return GiornoInesistente(gma);
}

}  // namespace fenalto
