#include "core/store/IndiceRicerca.h"

#include <algorithm>
#include <bit>

namespace fenalto {
namespace {

std::size_t Combina(std::size_t insieme, std::size_t campo) {
  return (insieme ^ campo) * 0x9e3779b97f4a7c15ULL + (insieme >> 32U);
}

}  // namespace

IndiceRicerca::Tavola IndiceRicerca::Costruisci(const engine::RigheLette& righe,
                                                std::vector<std::size_t> colonne) {
  Tavola tavola;
  tavola.colonne = std::move(colonne);
  tavola.teste.resize(std::bit_ceil(righe.Numero() + righe.Numero() / 2 + 1));
  tavola.seguenti.resize(righe.Numero());
  const std::size_t maschera = tavola.teste.size() - 1;
  // Backwards, so that each chain has its first row first.
  for (std::size_t riga = righe.Numero(); riga-- > 0;) {
    std::size_t hash = 0;
    bool nullo = false;
    for (const std::size_t colonna : tavola.colonne) {
      nullo = nullo || righe.Nullo(riga, colonna);
      if (!nullo) hash = Combina(hash, righe.Hash(riga, colonna));
    }
    if (nullo) continue;
    hash ^= hash >> 32U;
    std::uint32_t& testa = tavola.teste[hash & maschera];
    tavola.seguenti[riga] = testa;
    testa = static_cast<std::uint32_t>(riga + 1);
  }
  return tavola;
}

std::optional<std::size_t> IndiceRicerca::Prima(const engine::RigheLette& righe,
                                                const Uguaglianze& cercate) {
  std::vector<std::size_t> colonne;
  colonne.reserve(cercate.size());
  std::size_t hash = 0;
  for (const auto& [colonna, valore] : cercate) {
    if (valore.Nullo()) return std::nullopt;
    colonne.push_back(colonna);
    hash = Combina(hash, engine::HashValore(valore));
  }
  hash ^= hash >> 32U;
  auto tavola = std::ranges::find(tavole_, colonne, &Tavola::colonne);
  if (tavola == tavole_.end()) {
    tavole_.push_back(Costruisci(righe, std::move(colonne)));
    tavola = std::prev(tavole_.end());
  }
  for (std::size_t riga = tavola->teste[hash & (tavola->teste.size() - 1)]; riga != 0;
       riga = tavola->seguenti[riga - 1]) {
    const bool tutte = std::ranges::all_of(cercate, [&](const auto& coppia) {
      return righe.Uguale(riga - 1, coppia.first, coppia.second);
    });
    if (tutte) return riga - 1;
  }
  return std::nullopt;
}

}  // namespace fenalto
