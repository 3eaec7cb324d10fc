#include "bench/MisureImpostazioni.h"

#include <stdexcept>
#include <unordered_map>

#include "bench/DialoghiMuti.h"
#include "core/session/Chiavi.h"
#include "core/session/CreaDitta.h"
#include "core/session/FileIni.h"
#include "core/session/FileTesto.h"

namespace fenalto::banco {

namespace {

constexpr const char* kDitta = "Impostazioni";
constexpr int kLetture = 10'000;

std::size_t ultimo = 0;  // keeps the compiler from dropping the reads

void Riuscito(const Esito<bool>& esito) {
  if (!esito) throw std::runtime_error(esito.Errore().messaggio);
}

/// Opens the company with every key in its file.
void Prepara(Ambiente& ambiente, const OpzioniAmbiente& opzioni) {
  if (!std::filesystem::exists(opzioni.cartellaProgramma / (std::string(kDitta) + ".ini"))) {
    Riuscito(CreaDittaDaModello(opzioni, kDitta, {{2024, true, false}}, false));
  }
  Riuscito(ambiente.ApriDitta(kDitta));
  auto file = FileIni::Leggi(ambiente.FileImpostazioni());
  if (!file) throw std::runtime_error(file.Errore().messaggio);
  for (const auto& una : ChiaviDitta()) file.Valore().Imposta("config", una.nome, "100.010");
  Riuscito(ScriviFileTesto(ambiente.FileImpostazioni(), file.Valore().Testo()));
}

}  // namespace

Rapporto MisuraImpostazioni(const OpzioniAmbiente& opzioni) {
  DialoghiMuti dialoghi;
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  Prepara(ambiente, opzioni);
  const auto chiavi = ChiaviDitta();
  std::unordered_map<std::string, std::string> tavola;
  for (const auto& una : chiavi) tavola[una.nome] = ambiente.Config(una.nome);
  const auto leggi = [&](const auto& lettura) {
    for (std::size_t i = 0; i < kLetture; ++i) {
      const std::string valore = lettura(chiavi[i % chiavi.size()].nome);
      ultimo += valore.size();
    }
  };
  constexpr double kLimite = 20;
  constexpr int kVolte = 51;
  return Misura(
      "impostazioni", kLimite,
      [&] { leggi([&](const char* nome) { return ambiente.Config(nome); }); },
      [&] { leggi([&](const char* nome) { return tavola.find(nome)->second; }); }, kVolte);
}

}  // namespace fenalto::banco
