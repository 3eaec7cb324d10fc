#include "core/session/Scheda.h"

#include <algorithm>
#include <stdexcept>

#include "core/values/Testo.h"

namespace fenalto {

Scheda::Scheda(const sql::TabellaCatalogo& tabella) {
  campi_.reserve(tabella.colonne.size());
  for (const sql::ColonnaCatalogo& colonna : tabella.colonne) {
    if (colonna.nascosta) continue;
    Campo campo;
    campo.nome = colonna.nome;
    campo.tipo = colonna.tipo;
    campo.contatore = colonna.contatore;
    campo.ammetteNull = colonna.ammetteNull;
    campi_.push_back(std::move(campo));
  }
  Svuota();
}

void Scheda::Aggiungi(std::string nome, Tipo tipo) {
  if (Ha(nome)) throw std::invalid_argument("il campo «" + nome + "» c'è già");
  Campo campo;
  campo.nome = std::move(nome);
  campo.tipo = tipo;
  campo.diTabella = false;
  campo.valore = campo.originale = Valore::Vuoto(tipo);
  campi_.push_back(std::move(campo));
}

const Scheda::Campo* Scheda::Trova(std::string_view campo) const {
  for (const Campo& c : campi_) {
    if (UgualeTesto(c.nome, campo)) return &c;
  }
  return nullptr;
}

const Scheda::Campo& Scheda::Preso(std::string_view campo) const {
  if (const Campo* c = Trova(campo)) return *c;
  throw std::out_of_range("non c'è nessun campo «" + std::string(campo) + "»");
}

bool Scheda::Ha(std::string_view campo) const {
  return Trova(campo) != nullptr;
}

std::vector<std::string> Scheda::Nomi() const {
  std::vector<std::string> nomi;
  nomi.reserve(campi_.size());
  for (const Campo& c : campi_) nomi.push_back(c.nome);
  return nomi;
}

Tipo Scheda::TipoDi(std::string_view campo) const {
  return Preso(campo).tipo;
}

const Valore& Scheda::Leggi(std::string_view campo) const {
  return Preso(campo).valore;
}

Valore Scheda::Convertito(const Campo& campo, const Valore& valore) {
  if (!valore.Nullo()) return valore.Come(campo.tipo);
  return campo.ammetteNull ? Valore() : Valore::Vuoto(campo.tipo);
}

void Scheda::Scrivi(std::string_view campo, const Valore& valore) {
  const auto indice = static_cast<std::size_t>(&Preso(campo) - campi_.data());
  campi_[indice].valore = Convertito(campi_[indice], valore);
}

void Scheda::Svuota() {
  for (Campo& c : campi_) c.valore = c.originale = Convertito(c, {});
}

void Scheda::Carica(const Rs& riga) {
  for (Campo& c : campi_) {
    if (const auto indice = riga.Indice(c.nome)) {
      c.valore = Convertito(c, riga.Fields(*indice));
    }
  }
  Consolida();
}

std::vector<std::pair<std::string, Valore>> Scheda::Campi() const {
  std::vector<std::pair<std::string, Valore>> scritti;
  scritti.reserve(campi_.size());
  for (const Campo& c : campi_) {
    if (c.diTabella && !c.contatore) scritti.emplace_back(c.nome, c.valore);
  }
  return scritti;
}

bool Scheda::Diverso(const Campo& campo) {
  // Texts that differ in case only are the same to the store, not to who typed them.
  if (campo.valore.Tipo() == Tipo::Testo && campo.originale.Tipo() == Tipo::Testo) {
    return campo.valore.RifTesto() != campo.originale.RifTesto();
  }
  return !(campo.valore == campo.originale);
}

bool Scheda::Modificata() const {
  return std::any_of(campi_.begin(), campi_.end(), Diverso);
}

bool Scheda::Modificata(std::string_view campo) const {
  return Diverso(Preso(campo));
}

void Scheda::Consolida() {
  for (Campo& c : campi_) c.originale = c.valore;
}

}  // namespace fenalto
