#include "bench/MisuraCerca.h"

#include <array>
#include <string_view>

#include "core/values/Testo.h"
#include "overview/IndiceVoci.h"

namespace fenalto::banco {

namespace {

constexpr std::size_t kParti = 20'000;
constexpr std::size_t kPerGenere = 8;
constexpr std::array kNomi = {"Rossi",  "Bianchi",  "Ferrari", "Colombo", "Perché",
                              "Marino", "Giordano", "Rinaldi", "Caruso",  "Leone"};
constexpr std::array kForme = {"Costruzioni Srl", "Serramenti Snc", "& Figli", "Impianti Spa"};
constexpr std::array<std::string_view, 6> kDigitate = {"r",     "ro",      "rossi",
                                                       "costr", "srl fer", "zq"};

std::size_t trovate = 0;  // keeps the compiler from dropping the searches

std::vector<overview::Voce> Parti() {
  std::vector<overview::Voce> voci;
  for (std::size_t i = 0; i < kParti; ++i) {
    overview::Voce voce;
    voce.genere = i % 2 == 0 ? overview::GenereVoce::Cliente : overview::GenereVoce::Fornitore;
    voce.codice = std::to_string(10'000 + i);
    voce.nome = std::string(kNomi[i % kNomi.size()]) + " " + kForme[i / 7 % kForme.size()] + " " +
                std::to_string(i * 7919 % kParti);
    voce.percorso = kNomi[i / 3 % kNomi.size()];
    voci.push_back(std::move(voce));
  }
  return voci;
}

}  // namespace

Rapporto MisuraCerca() {
  auto voci = Parti();
  std::vector<std::string> nude;
  for (const auto& voce : voci) {
    nude.push_back(PerRicerca(voce.nome + "\n" + voce.codice + "\n\n" + voce.percorso));
  }
  overview::IndiceVoci indice;
  indice.Imposta(overview::IndiceVoci::Parte::Ditta, std::move(voci));
  constexpr double kLimite = 6;
  constexpr int kVolte = 15;
  return Misura(
      "cerca", kLimite,
      [&] {
        for (const auto digitata : kDigitate) trovate += indice.Cerca(digitata, kPerGenere).size();
      },
      [&] {
        for (const auto digitata : kDigitate) {
          for (const auto& nuda : nude)
            trovate += nuda.find(digitata) != std::string::npos ? 1U : 0U;
        }
      },
      kVolte);
}

}  // namespace fenalto::banco
