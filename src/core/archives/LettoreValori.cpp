#include "core/archives/LettoreValori.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "core/values/Lettere.h"
#include "core/values/Testo.h"

namespace fenalto::archives {
namespace {

constexpr int kGruppo = 3;       // digits between marks of thousands
constexpr int kMaxDecimali = 4;  // of an amount
constexpr std::string_view kEuro = "€";
constexpr std::string_view kSpazioFisso = "\xC2\xA0";

/// Digits and marks alone: without blanks, currency, percent, apostrophes; the sign goes to
/// `negativo`.
std::string Nudo(std::string_view testo, bool& negativo) {
  std::string nudo;
  testo = Rifila(testo);
  for (std::size_t i = 0; i < testo.size(); ++i) {
    const std::string_view resto = testo.substr(i);
    if (resto.starts_with(kEuro)) {
      i += kEuro.size() - 1;
    } else if (resto.starts_with(kSpazioFisso)) {
      i += kSpazioFisso.size() - 1;
    } else if (testo[i] != ' ' && testo[i] != '\'' && testo[i] != '%') {
      nudo += testo[i];
    }
  }
  negativo = false;
  if (nudo.size() > 1 && (nudo.front() == '-' || nudo.front() == '+')) {
    negativo = nudo.front() == '-';
    nudo.erase(0, 1);
  } else if (nudo.size() > 1 && nudo.back() == '-') {
    negativo = true;
    nudo.pop_back();
  } else if (nudo.size() > 2 && nudo.front() == '(' && nudo.back() == ')') {
    negativo = true;
    nudo = nudo.substr(1, nudo.size() - 2);
  }
  return nudo;
}

/// What the value alone tells of its marks.
Decimali StileDi(const std::string& nudo) {
  const auto virgole = std::count(nudo.begin(), nudo.end(), ',');
  const auto punti = std::count(nudo.begin(), nudo.end(), '.');
  if (virgole == 0 && punti == 0) return Decimali::Ignoto;
  if (virgole > 0 && punti > 0) {
    return nudo.rfind(',') > nudo.rfind('.') ? Decimali::Virgola : Decimali::Punto;
  }
  if (virgole > 1) return Decimali::Punto;
  if (punti > 1) return Decimali::Virgola;
  const std::size_t segno = nudo.find(virgole == 1 ? ',' : '.');
  if (nudo.size() - segno - 1 == kGruppo && segno > 0 && segno <= kGruppo && nudo[0] != '0') {
    return Decimali::Ignoto;
  }
  return virgole == 1 ? Decimali::Virgola : Decimali::Punto;
}

/// Neutral text of digits with marks, empty when the marks of thousands don't stand where they do.
std::string SenzaMigliaia(const std::string& nudo, char decimale) {
  const char migliaia = decimale == ',' ? '.' : ',';
  const std::size_t fine = std::min(nudo.find(decimale), nudo.size());
  std::string neutro;
  const std::string intero = nudo.substr(0, fine);
  if (const std::size_t prima = intero.find(migliaia); prima != std::string::npos) {
    if (prima == 0 || prima > kGruppo) return {};
    for (std::size_t i = prima; i < intero.size(); i += kGruppo + 1) {
      if (intero[i] != migliaia || intero.size() - i - 1 < kGruppo) return {};
      if (intero.find(migliaia, i + 1) <= i + kGruppo) return {};
    }
  }
  for (const char c : intero) {
    if (c != migliaia) neutro += c;
  }
  if (neutro.empty()) neutro = "0";
  if (fine < nudo.size()) {
    std::string dopo = nudo.substr(fine + 1);
    while (!dopo.empty() && dopo.back() == '0') dopo.pop_back();
    if (!dopo.empty()) neutro += "." + dopo;
  }
  return neutro;
}

std::string Citato(std::string_view testo) {
  constexpr std::size_t kMostrati = 40;
  std::string citato = Visibile(Mid(testo, 1, kMostrati));
  if (LunghezzaTesto(testo) > kMostrati) citato += "...";
  return "«" + citato + "»";
}

}  // namespace

void StileDecimali::Guarda(std::string_view testo) {
  bool negativo = false;
  const Decimali stile = StileDi(Nudo(testo, negativo));
  virgola_ = virgola_ || stile == Decimali::Virgola;
  punto_ = punto_ || stile == Decimali::Punto;
}

Decimali StileDecimali::Stile() const {
  if (virgola_ == punto_) return Decimali::Ignoto;
  return virgola_ ? Decimali::Virgola : Decimali::Punto;
}

Esito<Importo> LeggiImportoDiFile(std::string_view testo, Decimali stile) {
  bool negativo = false;
  const std::string nudo = Nudo(testo, negativo);
  if (nudo.empty()) return Importo();
  const bool buono = std::any_of(nudo.begin(), nudo.end(), lettere::Cifra) &&
                     std::all_of(nudo.begin(), nudo.end(),
                                 [](char c) { return lettere::Cifra(c) || c == ',' || c == '.'; });
  if (!buono) return Errore{Citato(testo) + " non è un importo"};
  const Decimali suo = StileDi(nudo);
  Decimali usato = suo == Decimali::Ignoto ? stile : suo;
  if (usato == Decimali::Ignoto && nudo.find('.') != std::string::npos) {
    return Errore{Citato(testo) + " è ambiguo: scrivere i decimali con la virgola, o senza punti"};
  }
  const std::string neutro = SenzaMigliaia(nudo, usato == Decimali::Punto ? '.' : ',');
  const auto letto = Importo::DaTesto((negativo ? "-" : "") + neutro);
  if (letto) return *letto;
  const std::size_t punto = neutro.find('.');
  if (punto != std::string::npos && neutro.size() - punto - 1 > kMaxDecimali &&
      Importo::DaTesto(neutro.substr(0, punto))) {
    return Errore{Citato(testo) + " ha più di quattro decimali"};
  }
  return Errore{Citato(testo) + " non è un importo"};
}

Esito<Data> LeggiDataDiFile(std::string_view testo) {
  testo = Rifila(testo);
  if (testo.empty()) return Data();
  const std::string_view intera = testo;
  // The hour that exports of a date and time have behind.
  if (const std::size_t ora = testo.find_first_of(" T"); ora != std::string_view::npos) {
    const std::string_view dietro = Rifila(testo.substr(ora + 1));
    const bool eOra = !dietro.empty() && std::all_of(dietro.begin(), dietro.end(), [](char c) {
      return lettere::Cifra(c) || c == ':' || c == '.';
    });
    if (eOra) testo = testo.substr(0, ora);
  }
  if (const auto iso = Data::DaIso(testo)) return *iso;
  const auto segni = std::count_if(testo.begin(), testo.end(),
                                   [](char c) { return c == '/' || c == '-' || c == '.'; });
  if (segni == 2) {
    if (auto letta = LeggiData(testo, 1, Data())) return letta.Valore();
  }
  return Errore{Citato(intera) + " non è una data: scrivere gg/mm/aaaa"};
}

Esito<bool> LeggiFlagDiFile(std::string_view testo) {
  static constexpr std::array<std::string_view, 10> kSi = {"si", "s", "vero", "true", "yes",
                                                           "y",  "x", "1",    "-1",   "on"};
  static constexpr std::array<std::string_view, 7> kNo = {"",      "no", "n",  "falso",
                                                          "false", "0",  "off"};
  const std::string letto = PerRicerca(Rifila(testo));
  if (std::find(kSi.begin(), kSi.end(), letto) != kSi.end()) return true;
  if (std::find(kNo.begin(), kNo.end(), letto) != kNo.end()) return false;
  return Errore{Citato(testo) + " non è un sì o un no"};
}

Esito<std::string> LeggiTestoDiFile(std::string_view testo, std::size_t massimo, bool piuLinee) {
  if (std::string difetto = DifettoTesto(testo); !difetto.empty()) {
    return Errore{std::move(difetto)};
  }
  std::string letto;
  for (const char c : Rifila(testo)) {
    if (c == '\r') continue;
    const bool spazio = c == '\t' || (c == '\n' && !piuLinee);
    letto += spazio ? ' ' : c;
  }
  if (const std::size_t lungo = LunghezzaTesto(letto); lungo > massimo) {
    return Errore{"testo di " + std::to_string(lungo) + " caratteri: al massimo " +
                  std::to_string(massimo)};
  }
  return letto;
}

namespace {

Esito<Valore> Ammesso(const std::string& testo, const CampoImporta& campo) {
  const std::string cercato = PerRicerca(testo);
  for (const auto& ammesso : campo.ammessi) {
    const bool uguale =
        PerRicerca(ammesso.valore) == cercato ||
        std::any_of(ammesso.sinonimi.begin(), ammesso.sinonimi.end(),
                    [&](const std::string& altro) { return PerRicerca(altro) == cercato; });
    if (uguale) return Valore(ammesso.valore);
  }
  std::string quali;
  for (const auto& ammesso : campo.ammessi) {
    quali += (quali.empty() ? "" : ", ") + ammesso.valore;
  }
  return Errore{Citato(testo) + " non è ammesso: " + quali};
}

Esito<Valore> Numero(std::string_view testo, const CampoImporta& campo, Tipo tipo, Decimali stile) {
  auto letto = LeggiImportoDiFile(testo, stile);
  if (!letto) return letto.Errore();
  const Importo importo = letto.Valore();
  if (tipo == Tipo::Intero && importo != Importo::DaUnita(importo.ParteIntera())) {
    return Errore{Citato(testo) + " non è un numero intero"};
  }
  if (campo.limiti && (importo < Importo::DaUnita(campo.limiti->first) ||
                       importo > Importo::DaUnita(campo.limiti->second))) {
    return Errore{Citato(testo) + " è fuori dai limiti: da " + std::to_string(campo.limiti->first) +
                  " a " + std::to_string(campo.limiti->second)};
  }
  return Valore(importo).Come(tipo);
}

}  // namespace

Esito<Valore> LeggiValoreDiFile(std::string_view testo, const CampoImporta& campo, Tipo tipo,
                                Decimali stile) {
  constexpr std::size_t kLungo = 255;  // a field that takes more has several lines
  const auto come = [](auto esito) -> Esito<Valore> {
    if (!esito) return esito.Errore();
    return Valore(std::move(esito).Valore());
  };
  switch (tipo) {
    case Tipo::Booleano:
      return come(LeggiFlagDiFile(testo));
    case Tipo::Data:
      return come(LeggiDataDiFile(testo));
    case Tipo::Intero:
    case Tipo::Importo:
    case Tipo::Reale:
      return Numero(testo, campo, tipo, stile);
    case Tipo::Nullo:
    case Tipo::Testo:
      break;
  }
  auto letto = LeggiTestoDiFile(testo, campo.lunghezza, campo.lunghezza > kLungo);
  if (!letto) return letto.Errore();
  if (!campo.ammessi.empty() && !letto.Valore().empty()) return Ammesso(letto.Valore(), campo);
  return Valore(std::move(letto).Valore());
}

}  // namespace fenalto::archives
