// Printed list of an archive: the widths follow from what is in it, so it is read twice and kept
// nowhere.
#include <algorithm>
#include <cstdint>

#include "core/archives/LetturaElenco.h"
#include "core/reports/MisuraTesto.h"
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
/// A caption that is longer than a column may be goes on in further lines of this width.
constexpr std::size_t kTitoloMinimo = 24;
/// Rows between two signs of life.
constexpr std::int64_t kOgni = 50;

bool Numerico(Tipo tipo) {
  return tipo == Tipo::Intero || tipo == Tipo::Importo || tipo == Tipo::Reale;
}

/// A column's widest value, in characters and on paper.
struct Misura {
  std::size_t larghezza = 0;
  int largo = 0;
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
    const reports::Cornice cornice{.rapporto = "elenco " + descrizione_.finestra,
                                   .titolo = descrizione_.titolo,
                                   .larghezza = kLarghezzaMinima,
                                   .grafico = true,
                                   .prepara = [this] { return Misurate() && Disponi(); }};
    if (!rapporto_.Apri(cornice, [this] { Testata(); })) return;
    rapporto_.Larghezza(std::max(kLarghezzaMinima, largaRiga_));
    std::int64_t stampate = 0;
    const bool tutte = Visita(totale_, [&](const std::vector<Valore>& riga) {
      rapporto_.RigaTavola(Testi(riga));
      ++stampate;
    });
    if (!tutte) return;
    rapporto_.Riserva(2);
    rapporto_.Filo("-");
    rapporto_.Scritta(kScritta, "numero record: " + std::to_string(stampate), true);
    rapporto_.Fine();
  }

 private:
  static constexpr const char* kScritta = "R_SCRITTATOT";

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

  /// What is shown of a row, by column.
  [[nodiscard]] std::vector<Valore> Testi(const std::vector<Valore>& riga) const {
    std::vector<Valore> testi;
    for (std::size_t c = 0; c < riga.size(); ++c) {
      testi.emplace_back(MostraColonna(lettura_.Colonne()[c], riga[c]));
    }
    return testi;
  }

  bool Misurate() {
    misure_.resize(lettura_.Colonne().size());
    const reports::Carattere carattere = reports::CarattereTavola();
    return Visita(0, [&](const std::vector<Valore>& riga) {
      ++totale_;
      const std::vector<Valore> testi = Testi(riga);
      for (std::size_t c = 0; c < riga.size(); ++c) {
        Misura& m = misure_[c];
        const std::string testo = testi[c].Testo();
        m.larghezza = std::max(m.larghezza, LunghezzaTesto(testo));
        m.largo = std::max(m.largo, reports::LarghezzaTesto(testo, carattere));
        if (Numerico(riga[c].Tipo())) m.numerica = true;
      }
    });
  }

  /// The table: the text form cuts what the page has no room for, the model has it go on below.
  bool Disponi() {
    const auto& colonne = lettura_.Colonne();
    for (std::size_t c = 0; c < colonne.size(); ++c) {
      const std::size_t titolo = LunghezzaTesto(colonne[c].didascalia);
      misure_[c].larghezza = std::max({std::size_t{1}, misure_[c].larghezza,
                                       titolo > kColonnaMassima ? kTitoloMinimo : titolo});
    }
    Stringi(misure_);
    std::vector<reports::Colonna> tavola;
    for (std::size_t c = 0; c < colonne.size(); ++c) {
      const Misura& m = misure_[c];
      reports::Colonna colonna{colonne[c].didascalia,
                               (c == 0 ? "" : " ") + reports::Ripeti("$", m.larghezza),
                               "R_C" + std::to_string(c + 1)};
      colonna.codice = m.numerica;
      colonna.largo = std::max(1, m.largo);
      tavola.push_back(std::move(colonna));
    }
    const reports::Colonne disposte(std::move(tavola));
    largaRiga_ = disposte.Larghezza();
    rapporto_.Tavola(disposte, kScritta);
    return true;
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
    if (!rapporto_.Grafico()) rapporto_.Vuota();
    rapporto_.Titolo("TITOLO", descrizione_.titolo, true);
    if (!filtro_.Vuoto()) rapporto_.Titolo("TITOLO2", "filtro: " + Filtro());
    if (!rapporto_.Grafico()) rapporto_.Vuota();
    rapporto_.Titoli("");
  }

  const DescrizioneArchivio& descrizione_;
  const FiltroElenco& filtro_;
  LetturaElenco lettura_;
  reports::Rapporto rapporto_;
  std::vector<Misura> misure_;
  std::int64_t totale_ = 0;
  std::size_t largaRiga_ = 0;
};

}  // namespace

void StampaElencoArchivio(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                          const DescrizioneArchivio& descrizione, const FiltroElenco& filtro) {
  TabulatoArchivio(ambiente, uscite, descrizione, filtro).Esegui();
}

}  // namespace fenalto::archives
