#include "core/archives/Corrispondenze.h"

#include <algorithm>

#include "core/values/Testo.h"

namespace fenalto::archives {
namespace {

/// Remembered for a column that the user left out.
constexpr std::string_view kNessuno = "-";

bool SiChiama(const CampoImporta& campo, const std::string& nome) {
  return NomeColonna(campo.nome) == nome || NomeColonna(campo.didascalia) == nome ||
         std::any_of(campo.sinonimi.begin(), campo.sinonimi.end(),
                     [&](const std::string& altro) { return NomeColonna(altro) == nome; });
}

}  // namespace

std::string NomeColonna(std::string_view nome) {
  std::string confrontato;
  for (const char c : PerRicerca(nome)) {
    const bool lettera = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    // Letters of other alphabets stay: they tell columns apart.
    if (lettera || static_cast<unsigned char>(c) >= 0x80) confrontato += c;
  }
  return confrontato;
}

Corrispondenze::Corrispondenze(Ambiente& ambiente, const GenereImporta& genere,
                               const std::vector<CampoImporta>& campi,
                               std::vector<std::string> colonne)
    : ambiente_(ambiente),
      sezione_("Importa" + genere.nome),
      campi_(campi),
      colonne_(std::move(colonne)),
      scelte_(colonne_.size()) {
  Proponi();
}

std::string Corrispondenze::Chiave(std::size_t colonna) const {
  constexpr std::size_t kMassimo = 80;
  return Mid(NomeColonna(colonne_[colonna]), 1, kMassimo);
}

void Corrispondenze::Proponi() {
  const auto file = ambiente_.FileStazione();
  std::vector<bool> decise(colonne_.size(), false);
  for (std::size_t i = 0; i < colonne_.size(); ++i) {
    if (Chiave(i).empty()) continue;
    const std::string ricordato = ambiente_.LeggiImpostazione(file, sezione_, Chiave(i));
    if (ricordato.empty()) continue;
    decise[i] = true;
    if (ricordato != kNessuno) Abbina(i, ricordato);
  }
  for (std::size_t i = 0; i < colonne_.size(); ++i) {
    const std::string nome = NomeColonna(colonne_[i]);
    if (decise[i] || nome.empty()) continue;
    for (const auto& campo : campi_) {
      if (!Colonna(campo.nome) && SiChiama(campo, nome)) {
        Abbina(i, campo.nome);
        break;
      }
    }
  }
}

std::optional<std::size_t> Corrispondenze::Campo(std::size_t colonna) const {
  return scelte_.at(colonna);
}

std::optional<std::size_t> Corrispondenze::Colonna(std::string_view campo) const {
  for (std::size_t i = 0; i < scelte_.size(); ++i) {
    if (scelte_[i] && UgualeTesto(campi_[*scelte_[i]].nome, campo)) return i;
  }
  return std::nullopt;
}

void Corrispondenze::Abbina(std::size_t colonna, std::string_view campo) {
  scelte_.at(colonna).reset();
  if (const auto altra = Colonna(campo)) scelte_[*altra].reset();
  for (std::size_t i = 0; i < campi_.size(); ++i) {
    if (UgualeTesto(campi_[i].nome, campo)) scelte_[colonna] = i;
  }
}

void Corrispondenze::Ricorda() {
  const auto file = ambiente_.FileStazione();
  for (std::size_t i = 0; i < colonne_.size(); ++i) {
    if (Chiave(i).empty()) continue;
    const std::string scelta = scelte_[i] ? campi_[*scelte_[i]].nome : std::string(kNessuno);
    if (ambiente_.LeggiImpostazione(file, sezione_, Chiave(i)) == scelta) continue;
    if (!ambiente_.ScriviImpostazione(file, sezione_, Chiave(i), scelta)) return;
  }
}

}  // namespace fenalto::archives
