// Printed list of an archive: the widths follow from what is in it, so it is read twice and kept
// nowhere.
#include <algorithm>
#include <cstdint>

#include "core/archives/LetturaElenco.h"
#include "core/reports/Rapporto.h"
#include "core/values/Testo.h"

namespace fenalto::archives {

namespace {

constexpr std::size_t kLarghezzaMinima = 80;
/// A page on its side at the usual pitch.
constexpr std::size_t kLarghezzaMassima = 190;
/// A text column never takes more than this, nor is narrowed below the second.
constexpr std::size_t kColonnaMassima = 60;
constexpr std::size_t kColonnaMinima = 10;
/// Rows between two signs of life.
constexpr std::int64_t kOgni = 50;

bool Numerico(Tipo tipo) {
  return tipo == Tipo::Intero || tipo == Tipo::Importo || tipo == Tipo::Reale;
}

/// A column's captions and widest value.
struct Misura {
  std::size_t larghezza = 0;
  bool numerica = false;
};

/// Cuts texts to the greatest width, then the widest of them until the line stands on the page.
void Stringi(std::vector<Misura>& misure) {
  std::size_t somma = misure.empty() ? 0 : misure.size() - 1;
  for (Misura& m : misure) {
    if (!m.numerica) m.larghezza = std::min(m.larghezza, kColonnaMassima);
    somma += m.larghezza;
  }
  for (; somma > kLarghezzaMassima; --somma) {
    Misura* larga = nullptr;
    for (Misura& m : misure) {
      if (m.numerica || m.larghezza <= kColonnaMinima) continue;
      if (larga == nullptr || m.larghezza > larga->larghezza) larga = &m;
    }
    if (larga == nullptr) return;
    --larga->larghezza;
  }
}

class TabulatoArchivio {
 public:
  TabulatoArchivio(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                   const DescrizioneArchivio& descrizione, const FiltroElenco& filtro)
      : descrizione_(descrizione),
        filtro_(filtro),
        lettura_(ambiente, descrizione, filtro),
        rapporto_(ambiente, uscite) {}

  void Esegui() {
    const reports::Cornice cornice{"elenco " + descrizione_.finestra, descrizione_.titolo, "",
                                   kLarghezzaMinima};
    std::int64_t totale = 0;
    if (!rapporto_.Apri(cornice, [this] { Testata(); }) || !Misurate(totale)) return;
    Disponi();
    std::int64_t stampate = 0;
    const bool tutte = Visita(totale, [&](const std::vector<Valore>& riga) {
      std::vector<std::string> testi;
      for (std::size_t c = 0; c < riga.size(); ++c) {
        testi.push_back(MostraColonna(lettura_.Colonne()[c], riga[c]));
      }
      Riga(testi);
      ++stampate;
    });
    if (!tutte) return;
    rapporto_.Riserva(2);
    rapporto_.Rigo("-");
    rapporto_.RigaTesto("numero record: " + std::to_string(stampate), true);
    rapporto_.Fine();
  }

 private:
  bool Visita(std::int64_t totale, const std::function<void(const std::vector<Valore>&)>& su) {
    rapporto_.Avvia("Stampa " + descrizione_.titolo, totale, kOgni);
    bool avanti = true;
    lettura_.Leggi("", LetturaElenco::Verso::Avanti, 0, [&](const std::vector<Valore>& riga) {
      su(riga);
      avanti = rapporto_.Passo();
      return avanti;
    });
    return avanti && !rapporto_.Interrotta();
  }

  bool Misurate(std::int64_t& totale) {
    const auto& colonne = lettura_.Colonne();
    for (const auto& colonna : colonne) {
      misure_.push_back({std::max<std::size_t>(1, LunghezzaTesto(colonna.didascalia))});
    }
    return Visita(0, [&](const std::vector<Valore>& riga) {
      ++totale;
      for (std::size_t c = 0; c < riga.size(); ++c) {
        const std::size_t serve = LunghezzaTesto(MostraColonna(colonne[c], riga[c]));
        misure_[c].larghezza = std::max(misure_[c].larghezza, serve);
        if (Numerico(riga[c].Tipo())) misure_[c].numerica = true;
      }
    });
  }

  void Disponi() {
    Stringi(misure_);
    for (const Misura& m : misure_) {
      riga_.sagoma += (riga_.sagoma.empty() ? "" : " ") + reports::Ripeti("$", m.larghezza);
    }
    rapporto_.Larghezza(std::max(kLarghezzaMinima, riga_.sagoma.size()));
  }

  [[nodiscard]] std::string Filtro() const {
    std::string testo;
    const auto aggiungi = [&](const std::string& pezzo) {
      testo += (testo.empty() ? "" : "; ") + pezzo;
    };
    if (!filtro_.testo.empty()) aggiungi("«" + filtro_.testo + "»");
    const auto& colonne = lettura_.Colonne();
    for (std::size_t c = 0; c < filtro_.colonne.size() && c < colonne.size(); ++c) {
      if (!filtro_.colonne[c].empty()) {
        aggiungi(colonne[c].didascalia + " con «" + filtro_.colonne[c] + "»");
      }
    }
    return testo;
  }

  void Testata() {
    rapporto_.TestataDitta();
    rapporto_.Vuota();
    rapporto_.RigaTesto(descrizione_.titolo, true);
    if (!filtro_.Vuoto()) rapporto_.RigaTesto("filtro: " + Filtro());
    rapporto_.Vuota();
    std::vector<std::string> titoli;
    for (const auto& colonna : lettura_.Colonne()) titoli.push_back(colonna.didascalia);
    Riga(titoli);
    rapporto_.Rigo("-");
  }

  /// Numbers stand to the right of their columns.
  void Riga(const std::vector<std::string>& testi) {
    std::vector<Valore> valori;
    for (std::size_t c = 0; c < testi.size(); ++c) {
      const std::size_t largo = misure_[c].larghezza;
      const std::size_t lungo = misure_[c].numerica ? LunghezzaTesto(testi[c]) : largo;
      valori.emplace_back(std::string(largo - std::min(largo, lungo), ' ') + testi[c]);
    }
    rapporto_.Riga(riga_, std::move(valori));
  }

  const DescrizioneArchivio& descrizione_;
  const FiltroElenco& filtro_;
  LetturaElenco lettura_;
  reports::Rapporto rapporto_;
  std::vector<Misura> misure_;
  reports::Fascia riga_;
};

}  // namespace

void StampaElencoArchivio(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                          const DescrizioneArchivio& descrizione, const FiltroElenco& filtro) {
  TabulatoArchivio(ambiente, uscite, descrizione, filtro).Esegui();
}

}  // namespace fenalto::archives
