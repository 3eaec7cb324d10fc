#include "overview/IndiceVoci.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "core/values/Testo.h"

namespace fenalto::overview {
namespace {

constexpr char kFine = '\n';
constexpr char kTraSinonimi = ';';
constexpr std::size_t kFunzioniPerGenere = 3;

/// Letters and digits, and anything beyond plain letters: what isn't parts words.
bool DiParola(char lettera) {
  const auto byte = static_cast<unsigned char>(lettera);
  return byte >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z');
}

/// Whether a word of the text begins so.
bool IniziaParola(std::string_view testo, std::string_view cercata) {
  for (std::size_t da = testo.find(cercata); da != std::string_view::npos;
       da = testo.find(cercata, da + 1)) {
    if (da == 0 || !DiParola(testo[da - 1])) return true;
  }
  return false;
}

template <typename Prova>
bool Tutte(const std::vector<std::string_view>& parole, const Prova& prova) {
  return std::all_of(parole.begin(), parole.end(), prova);
}

/// How many hits of a kind are shown.
std::size_t Quanti(GenereVoce genere, std::size_t perGenere) {
  return genere == GenereVoce::Funzione ? perGenere * kFunzioniPerGenere : perGenere;
}

}  // namespace

const char* NomeGenere(GenereVoce genere) {
  constexpr std::array<const char*, kGeneri> kNomi = {"recente", "funzione",  "conto",
                                                      "cliente", "fornitore", "prodotto"};
  return kNomi.at(static_cast<std::size_t>(genere));
}

IndiceVoci::Piegata IndiceVoci::Piega(Voce voce) {
  Piegata piegata;
  const auto aggiungi = [&](std::string_view parte) {
    piegata.testo += PerRicerca(parte);
    piegata.testo += kFine;
    return static_cast<std::uint32_t>(piegata.testo.size());
  };
  piegata.fineNome = aggiungi(voce.nome);
  piegata.fineCodice = aggiungi(voce.codice);
  piegata.fineSinonimi = aggiungi(voce.sinonimi);
  aggiungi(voce.percorso);
  piegata.voce = std::move(voce);
  return piegata;
}

void IndiceVoci::Imposta(Parte parte, std::vector<Voce> voci) {
  auto& dove = parti_.at(static_cast<std::size_t>(parte));
  dove.clear();
  dove.reserve(voci.size());
  for (Voce& voce : voci) dove.push_back(Piega(std::move(voce)));
}

bool IndiceVoci::Valuta(const Piegata& voce, std::string_view testo,
                        const std::vector<std::string_view>& parole, Grado& grado) {
  const std::string_view tutto = voce.testo;
  const auto in = [](std::string_view dove) {
    return [dove](std::string_view parola) { return dove.find(parola) != std::string_view::npos; };
  };
  if (!Tutte(parole, in(tutto))) return false;
  const auto tratto = [&](std::uint32_t da, std::uint32_t fine) {
    return tutto.substr(da, fine - da - 1);
  };
  const std::string_view nome = tratto(0, voce.fineNome);
  const std::string_view codice = tratto(voce.fineNome, voce.fineCodice);
  const std::string_view sinonimi = tratto(voce.fineCodice, voce.fineSinonimi);
  const std::string_view senzaPercorso = tutto.substr(0, voce.fineSinonimi);
  const std::string_view nomeECodice = tutto.substr(0, voce.fineCodice);
  bool uguale = nome == testo || codice == testo;
  bool inizia = false;
  for (std::size_t da = 0; !uguale && da < sinonimi.size();) {
    const std::size_t fine = std::min(sinonimi.find(kTraSinonimi, da), sinonimi.size());
    const std::string_view sinonimo = Rifila(sinonimi.substr(da, fine - da));
    uguale = sinonimo == testo;
    inizia = inizia || sinonimo.starts_with(testo);
    da = fine + 1;
  }
  const auto iniziali = [](std::string_view dove) {
    return [dove](std::string_view parola) { return IniziaParola(dove, parola); };
  };
  grado = uguale                                                 ? Grado::Uguale
          : nome.starts_with(testo) || codice.starts_with(testo) ? Grado::Inizia
          : inizia                                               ? Grado::IniziaAltro
          : Tutte(parole, iniziali(nome))                        ? Grado::ParoleNome
          : Tutte(parole, in(nomeECodice))                       ? Grado::DentroNome
          : Tutte(parole, iniziali(senzaPercorso))               ? Grado::ParoleAltre
          : Tutte(parole, in(senzaPercorso))                     ? Grado::DentroAltre
                                                                 : Grado::ConIlPercorso;
  return true;
}

std::vector<Colpo> IndiceVoci::Cerca(std::string_view testo, std::size_t perGenere) const {
  const std::string piegato = PerRicerca(Rifila(testo));
  std::vector<std::string_view> parole;
  for (std::size_t da = 0; da < piegato.size();) {
    const std::size_t fine = std::min(piegato.find(' ', da), piegato.size());
    if (fine > da) parole.push_back(std::string_view(piegato).substr(da, fine - da));
    da = fine + 1;
  }
  struct Trovata {
    const Piegata* piegata;
    Grado grado;
  };
  std::array<std::vector<Trovata>, kGeneri> trovate;
  for (std::size_t parte = 0; parte < parti_.size(); ++parte) {
    if (parole.empty() && parte == static_cast<std::size_t>(Parte::Ditta)) break;
    for (const Piegata& voce : parti_[parte]) {
      Grado grado = Grado::Uguale;
      if (!parole.empty() && !Valuta(voce, piegato, parole, grado)) continue;
      trovate.at(static_cast<std::size_t>(voce.voce.genere)).push_back({&voce, grado});
    }
  }
  std::array<std::size_t, kGeneri> ordine{};
  std::array<std::size_t, kGeneri> migliore{};
  std::iota(ordine.begin(), ordine.end(), std::size_t{0});
  for (std::size_t genere = 0; genere < kGeneri; ++genere) {
    auto& sue = trovate[genere];
    const auto tipo = static_cast<GenereVoce>(genere);
    // Functions and records keep their own order among equals, names go by the alphabet.
    const bool alfabeto = tipo >= GenereVoce::Conto;
    const auto prima = [alfabeto](const Trovata& a, const Trovata& b) {
      if (a.grado != b.grado) return a.grado < b.grado;
      if (!alfabeto) return a.piegata < b.piegata;
      return a.piegata->testo < b.piegata->testo;
    };
    const std::size_t quante =
        std::min(sue.size(), parole.empty() && !alfabeto ? sue.size() : Quanti(tipo, perGenere));
    std::partial_sort(sue.begin(), sue.begin() + static_cast<std::ptrdiff_t>(quante), sue.end(),
                      prima);
    sue.resize(quante);
    migliore[genere] = sue.empty() ? std::numeric_limits<std::size_t>::max()
                                   : static_cast<std::size_t>(sue.front().grado);
  }
  std::ranges::stable_sort(ordine, {}, [&](std::size_t genere) { return migliore[genere]; });
  std::vector<Colpo> colpi;
  for (const std::size_t genere : ordine) {
    for (const Trovata& una : trovate[genere]) colpi.push_back({&una.piegata->voce, una.grado});
  }
  return colpi;
}

}  // namespace fenalto::overview
