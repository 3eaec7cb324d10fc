// Printed list of an archive: the widths follow from what is in it, so it is read twice and kept
// nowhere.
#include <algorithm>
#include <cstdint>
#include <memory>

#include "core/archives/LetturaElenco.h"
#include "core/reports/Cornice.h"
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

class TabulatoArchivio {
 public:
  TabulatoArchivio(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                   const DescrizioneArchivio& descrizione, const FiltroElenco& filtro)
      : ambiente_(ambiente),
        descrizione_(descrizione),
        filtro_(filtro),
        lettura_(ambiente, descrizione, filtro),
        stampa_(ambiente, uscite),
        ditta_(reports::LeggiDatiDitta(ambiente)) {}

  void Esegui() {
    reports::Cornice cornice;
    cornice.rapporto = "elenco " + descrizione_.finestra;
    cornice.titolo = descrizione_.titolo;
    cornice.larghezza = kLarghezzaMinima;
    if (reports::ApriStampa(stampa_, ambiente_, cornice) == reports::ModoStampa::Fermata ||
        !Misura())
      return;
    Disponi();
    stampa_.Larghezza(larghezza_);
    stampa_.Intestazione([this] { Testata(); });
    if (!Righe()) return;
    stampa_.Riserva(2);
    stampa_.Riga(reports::Ripeti("-", larghezza_));
    stampa_.Campo(1, "numero record: " + std::to_string(stampate_));
    stampa_.Riga(reports::Ripeti("$", larghezza_), {}, true);
    stampa_.Fine();
  }

 private:
  bool Visita(std::int64_t totale, const std::function<void(const std::vector<Valore>&)>& su) {
    const std::unique_ptr<Avanzamento> avanzamento =
        ambiente_.Dialogo().Avvia("Stampa " + descrizione_.titolo, totale);
    std::int64_t lette = 0;
    bool avanti = true;
    lettura_.Leggi("", LetturaElenco::Verso::Avanti, 0, [&](const std::vector<Valore>& riga) {
      su(riga);
      if (++lette % kOgni == 0) avanti = avanzamento->Avanza(lette) && !stampa_.Interrotta();
      return avanti;
    });
    return avanti && !stampa_.Interrotta();
  }

  bool Misura() {
    const auto& colonne = lettura_.Colonne();
    larghezze_.assign(colonne.size(), 0);
    numeriche_.assign(colonne.size(), false);
    for (std::size_t c = 0; c < colonne.size(); ++c) {
      larghezze_[c] = std::max<std::size_t>(1, LunghezzaTesto(colonne[c].didascalia));
    }
    return Visita(0, [&](const std::vector<Valore>& riga) {
      ++totale_;
      for (std::size_t c = 0; c < riga.size(); ++c) {
        const std::size_t serve = LunghezzaTesto(MostraColonna(colonne[c], riga[c]));
        larghezze_[c] = std::max(larghezze_[c], serve);
        if (Numerico(riga[c].Tipo())) numeriche_[c] = true;
      }
    });
  }

  /// Cuts texts to the greatest width, then the widest of them until the line stands on the page.
  void Disponi() {
    for (std::size_t c = 0; c < larghezze_.size(); ++c) {
      if (!numeriche_[c]) larghezze_[c] = std::min(larghezze_[c], kColonnaMassima);
    }
    while (Somma() > kLarghezzaMassima) {
      std::size_t larga = larghezze_.size();
      for (std::size_t c = 0; c < larghezze_.size(); ++c) {
        if (numeriche_[c] || larghezze_[c] <= kColonnaMinima) continue;
        if (larga == larghezze_.size() || larghezze_[c] > larghezze_[larga]) larga = c;
      }
      if (larga == larghezze_.size()) break;
      --larghezze_[larga];
    }
    larghezza_ = std::max(kLarghezzaMinima, Somma());
    for (const std::size_t larghezza : larghezze_) {
      sagoma_ += (sagoma_.empty() ? "" : " ") + reports::Ripeti("$", larghezza);
    }
  }
  [[nodiscard]] std::size_t Somma() const {
    std::size_t somma = larghezze_.empty() ? 0 : larghezze_.size() - 1;
    for (const std::size_t larghezza : larghezze_) somma += larghezza;
    return somma;
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
    reports::TestataTesto(stampa_, ambiente_, ditta_, stampa_.NumeroPagina(), larghezza_);
    stampa_.Riga("");
    const std::string intera = reports::Ripeti("$", larghezza_);
    stampa_.Campo(1, descrizione_.titolo);
    stampa_.Riga(intera, {}, true);
    if (!filtro_.Vuoto()) {
      stampa_.Campo(1, "filtro: " + Filtro());
      stampa_.Riga(intera);
    }
    stampa_.Riga("");
    const auto& colonne = lettura_.Colonne();
    for (std::size_t c = 0; c < colonne.size(); ++c) Cella(c, colonne[c].didascalia);
    stampa_.Riga(sagoma_);
    stampa_.Riga(reports::Ripeti("-", larghezza_));
  }

  bool Righe() {
    const auto& colonne = lettura_.Colonne();
    return Visita(totale_, [&](const std::vector<Valore>& riga) {
      for (std::size_t c = 0; c < riga.size(); ++c) Cella(c, MostraColonna(colonne[c], riga[c]));
      stampa_.Riga(sagoma_);
      ++stampate_;
    });
  }

  void Cella(std::size_t colonna, const std::string& testo) {
    const std::size_t lungo = LunghezzaTesto(testo);
    const bool aDestra = numeriche_[colonna] && lungo < larghezze_[colonna];
    stampa_.Campo(colonna + 1,
                  aDestra ? std::string(larghezze_[colonna] - lungo, ' ') + testo : testo);
  }

  Ambiente& ambiente_;
  const DescrizioneArchivio& descrizione_;
  const FiltroElenco& filtro_;
  LetturaElenco lettura_;
  reports::Stampa stampa_;
  reports::DatiDitta ditta_;
  std::vector<std::size_t> larghezze_;
  std::vector<bool> numeriche_;
  std::string sagoma_;
  std::size_t larghezza_ = kLarghezzaMinima;
  std::int64_t totale_ = 0;
  std::int64_t stampate_ = 0;
};

}  // namespace

void StampaElencoArchivio(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                          const DescrizioneArchivio& descrizione, const FiltroElenco& filtro) {
  TabulatoArchivio(ambiente, uscite, descrizione, filtro).Esegui();
}

}  // namespace fenalto::archives
