#include "core/values/FormatoImporto.h"

#include <algorithm>
#include <cstdint>

#include "core/values/Lettere.h"
#include "core/values/Testo.h"

namespace fenalto {

using lettere::Cifra;

namespace {

constexpr std::size_t kDecimaliTenuti = 4;
constexpr std::uint64_t kBase = 10;
constexpr std::size_t kGruppo = 3;

Errore Sbaglio(std::string_view testo, std::string_view perche) {
  return Errore{"\"" + std::string(testo) + "\" non è un importo: " + std::string(perche)};
}

/// Whole digits out of "1.234.567": takes the marks away when every group is in its place.
bool TogliMigliaia(std::string_view intera, std::string& cifre) {
  if (intera.find('.') == std::string_view::npos) {
    cifre = intera;
    return true;
  }
  if (intera.front() == '0') return false;
  std::size_t gruppo = 0;
  bool primo = true;
  for (const char c : intera) {
    if (c != '.') {
      ++gruppo;
      cifre += c;
      continue;
    }
    if (primo ? gruppo < 1 || gruppo > kGruppo : gruppo != kGruppo) return false;
    primo = false;
    gruppo = 0;
  }
  return gruppo == kGruppo;
}

/// Where the decimal mark stands in digits, points and commas; npos when there is none.
std::size_t PostoDecimali(std::string_view numero) {
  if (const std::size_t virgola = numero.find(','); virgola != std::string_view::npos)
    return virgola;
  const std::size_t punto = numero.find('.');
  if (punto == std::string_view::npos || numero.rfind('.') != punto) return std::string_view::npos;
  const bool migliaia = numero.size() - punto - 1 == kGruppo && punto >= 1 && punto <= kGruppo &&
                        numero.front() != '0';
  return migliaia ? std::string_view::npos : punto;
}

/// The digits of `grandezza` with a point between groups of three.
std::string Raggruppa(std::uint64_t grandezza, bool migliaia) {
  std::string cifre = std::to_string(grandezza);
  if (migliaia)
    for (std::size_t i = cifre.size(); i > kGruppo; i -= kGruppo) cifre.insert(i - kGruppo, 1, '.');
  return cifre;
}

struct Parti {
  bool negativo;
  std::uint64_t intera;
  std::string decimali;  ///< always four digits
};

std::uint64_t GrandezzaDecimillesimi(Importo importo) {
  const auto valore = static_cast<std::uint64_t>(importo.Decimillesimi());
  return importo.Negativo() ? 0 - valore : valore;
}

Parti ScomponiGrandezza(std::uint64_t grandezza, bool negativo) {
  // The scale added makes a digit before the four, so that leading zeros stay.
  std::string decimali = std::to_string(Importo::kScala + grandezza % Importo::kScala).substr(1);
  return {negativo, grandezza / Importo::kScala, std::move(decimali)};
}

bool TuttiZeri(std::string_view cifre) {
  return cifre.find_first_not_of('0') == std::string_view::npos;
}

}  // namespace

Esito<Importo> LeggiImporto(std::string_view testo) {
  testo = Rifila(testo);
  if (testo.empty()) return Importo();
  std::string_view numero = testo;
  const bool negativo = numero.front() == '-';
  if (negativo || numero.front() == '+') numero.remove_prefix(1);
  if (!std::ranges::all_of(numero, [](char c) { return Cifra(c) || c == '.' || c == ','; }))
    return Sbaglio(testo, "scrivere solo cifre, con la virgola per i decimali");
  if (std::ranges::none_of(numero, Cifra)) return Sbaglio(testo, "mancano le cifre");

  const std::size_t posto = PostoDecimali(numero);
  std::string_view decimali;
  if (posto != std::string_view::npos) {
    decimali = numero.substr(posto + 1);
    numero = numero.substr(0, posto);
    if (decimali.empty()) return Sbaglio(testo, "dopo la virgola mancano i decimali");
    if (!std::ranges::all_of(decimali, Cifra))
      return Sbaglio(testo, "la virgola dei decimali va una volta sola, dopo i punti");
    if (decimali.size() > kDecimaliTenuti) return Sbaglio(testo, "i decimali sono al più quattro");
  }
  std::string neutro = negativo ? "-" : "";
  std::string cifre;
  if (!TogliMigliaia(numero, cifre))
    return Sbaglio(testo, "i punti delle migliaia vanno ogni tre cifre");
  neutro += cifre.empty() ? "0" : cifre;
  if (!decimali.empty()) neutro.append(".").append(decimali);
  if (const auto importo = Importo::DaTesto(neutro)) return *importo;
  return Sbaglio(testo, "è troppo grande");
}

std::string ScriviImporto(Importo importo, int decimaliMinimi, bool migliaia) {
  Parti parti = ScomponiGrandezza(GrandezzaDecimillesimi(importo), importo.Negativo());
  const auto minimi = static_cast<std::size_t>(std::clamp(decimaliMinimi, 0, int{kDecimaliTenuti}));
  const std::size_t ultima = parti.decimali.find_last_not_of('0');
  const std::size_t usati = ultima == std::string::npos ? 0 : ultima + 1;
  parti.decimali.resize(std::max(minimi, usati));
  std::string testo = parti.negativo ? "-" : "";
  testo += Raggruppa(parti.intera, migliaia);
  if (!parti.decimali.empty()) testo.append(",").append(parti.decimali);
  return testo;
}

std::string ScriviImportoFisso(Importo importo, int decimali, bool migliaia) {
  const int tenuti = std::clamp(decimali, 0, int{kDecimaliTenuti});
  std::uint64_t passo = 1;
  for (int i = tenuti; i < int{kDecimaliTenuti}; ++i) passo *= kBase;
  // The magnitude leaves room for half a step above the greatest amount.
  const std::uint64_t grandezza = GrandezzaDecimillesimi(importo);
  Parti parti = ScomponiGrandezza((grandezza + passo / 2) / passo * passo, importo.Negativo());
  parti.decimali.resize(static_cast<std::size_t>(std::max(decimali, 0)), '0');
  const bool zero = parti.intera == 0 && TuttiZeri(parti.decimali);
  std::string testo = parti.negativo && !zero ? "-" : "";
  testo += Raggruppa(parti.intera, migliaia);
  if (!parti.decimali.empty()) testo.append(",").append(parti.decimali);
  return testo;
}

std::string PictureImporto(Importo importo, int larghezza, bool euro) {
  constexpr int kDecimaliMaschera = 3;

  if (larghezza <= 0) return {};
  // The euro mask begins with a blank, which is none of its places.
  const auto posti = static_cast<std::size_t>(std::min(larghezza, euro ? 15 : 16));
  const std::string margine(static_cast<std::size_t>(larghezza) - posti, ' ');
  // The end of the mask that a narrow field takes has the comma only from the fourth place on.
  const bool virgola = euro && larghezza > kDecimaliMaschera;
  // So short an end of the mask that it has no mark of thousands.
  const bool migliaia = larghezza > (euro ? 7 : 4);
  std::string testo = ScriviImportoFisso(importo, virgola ? kDecimaliMaschera : 0, migliaia);
  // ",###" has no place for units: their zero is not written.
  if (virgola && larghezza == kDecimaliMaschera + 1 && testo.starts_with("0,")) testo.erase(0, 1);
  if (testo.size() > posti) return margine + std::string(posti, '*');
  return margine + std::string(posti - testo.size(), ' ') + testo;
}

}  // namespace fenalto
