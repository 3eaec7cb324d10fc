#include "core/reports/DescrizioneRapporto.h"

#include <algorithm>

#include "core/reports/Cornice.h"
#include "core/reports/PezzoSagoma.h"
#include "core/reports/TestoStampato.h"
#include "core/values/Testo.h"

namespace fenalto::reports {
namespace {

std::string Spazi(std::size_t quanti) {
  std::string spazi(quanti, ' ');
  return spazi;
}

}  // namespace

std::size_t Colonne::Larghezza() const {
  std::size_t larghezza = 0;
  for (const Colonna& c : colonne_) {
    if (c.mostrata) larghezza += LunghezzaTesto(c.sagoma);
  }
  return larghezza;
}

std::vector<std::string> Colonne::Titoli() const {
  std::vector<std::vector<std::string>> titoli;
  std::size_t quante = 1;
  for (const Colonna& c : colonne_) {
    const std::size_t largo = LunghezzaTesto(PezzoSagoma(c.sagoma).segnaposto);
    const bool cabe = largo == 0 || LunghezzaTesto(c.titolo) <= largo;
    titoli.push_back(cabe ? std::vector{c.titolo} : InRighe(c.titolo, largo));
    if (c.mostrata) quante = std::max(quante, titoli.back().size());
  }
  std::vector<std::string> righe(quante);
  for (std::size_t i = 0; i < colonne_.size(); ++i) {
    const Colonna& c = colonne_[i];
    if (!c.mostrata) continue;
    const PezzoSagoma pezzo(c.sagoma);
    const std::size_t largo = LunghezzaTesto(pezzo.segnaposto);
    titoli[i].insert(titoli[i].begin(), quante - titoli[i].size(), "");
    for (std::size_t k = 0; k < quante; ++k) {
      const std::string& titolo = titoli[i][k];
      const std::string spazi = Spazi(largo - std::min(largo, LunghezzaTesto(titolo)));
      righe[k].append(pezzo.prima);
      righe[k] += pezzo.Testo() && !c.codice ? titolo + spazi : spazi + titolo;
      righe[k].append(pezzo.dopo);
    }
  }
  return righe;
}

Fascia Colonne::Riga() const {
  Fascia fascia;
  for (const Colonna& c : colonne_) {
    if (!c.mostrata) continue;
    fascia.sagoma += c.sagoma;
    fascia.campi.push_back(c.campo);
  }
  return fascia;
}

Fascia Colonne::Totale(const std::string& campo, bool grassetto) const {
  Fascia fascia{{}, {campo}, grassetto};
  std::size_t largo = 0;
  for (const Colonna& c : colonne_) {
    if (!c.mostrata) continue;
    const bool prima = fascia.campi.size() == 1;
    if (c.sommata) {
      if (prima) fascia.sagoma = Ripeti("$", largo);
      fascia.sagoma += c.sagoma;
      fascia.campi.push_back(c.campoTotale);
    } else if (prima) {
      largo += LunghezzaTesto(c.sagoma);
    } else {
      const PezzoSagoma pezzo(c.sagoma);
      fascia.sagoma.append(pezzo.prima);
      fascia.sagoma += Spazi(LunghezzaTesto(pezzo.segnaposto));
      fascia.sagoma.append(pezzo.dopo);
    }
  }
  return fascia;
}

std::vector<std::string> Colonne::CampiTotale() const {
  std::vector<std::string> campi;
  for (const Colonna& c : colonne_) {
    if (c.mostrata) campi.push_back(c.campoTotale);
  }
  return campi;
}

std::vector<Valore> Colonne::SulFoglio(const std::vector<Valore>& celle) const {
  std::vector<Valore> scelte;
  for (std::size_t i = 0; i < celle.size(); ++i) {
    if (!colonne_[i].foglio.titolo.empty()) scelte.push_back(celle[i]);
  }
  return scelte;
}

std::vector<Valore> Colonne::Totale(const std::string& scritta, const Somme& somme) const {
  std::vector<Valore> valori{scritta};
  for (std::size_t i = 0; i < colonne_.size(); ++i) {
    if (colonne_[i].mostrata && colonne_[i].sommata) valori.emplace_back(somme[i]);
  }
  return valori;
}

std::vector<Valore> Colonne::TotaleFoglio(const std::string& scritta, const std::string& sotto,
                                          const Somme& somme) const {
  std::vector<Valore> riga;
  bool scritto = false;
  for (std::size_t i = 0; i < colonne_.size(); ++i) {
    const Colonna& c = colonne_[i];
    if (c.foglio.titolo.empty()) continue;
    riga.emplace_back();
    if (c.sommata) riga.back() = somme[i];
    if (scritto || c.foglio.titolo != sotto) continue;
    riga.back() = scritta;
    scritto = true;
  }
  return riga;
}

std::vector<ColonnaFoglio> Colonne::DelFoglio() const {
  std::vector<ColonnaFoglio> colonne;
  for (const Colonna& c : colonne_) {
    if (!c.foglio.titolo.empty()) colonne.push_back(c.foglio);
  }
  return colonne;
}

void Colonne::Somma(Somme& somme, const std::vector<Valore>& celle) const {
  for (std::size_t i = 0; i < colonne_.size(); ++i) {
    if (colonne_[i].sommata && !celle[i].Nullo()) somme[i] += celle[i].Importo();
  }
}

}  // namespace fenalto::reports
