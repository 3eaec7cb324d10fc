#include "core/session/Chiavi.h"

#include <algorithm>
#include <array>

#include "core/session/ChiaviTavola.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace {

constexpr std::string_view kAllineamento = "_XTar";

constexpr auto kStazione = std::to_array<ChiaveImpostazione>({
    {"TotaleXVerifica", "Registrazioni IVA", GenereChiave::SiNo, "No",
     "Nella registrazione delle fatture chiede il totale del documento e lo confronta con quello "
     "calcolato."},
    {"VerifFatForn", "Registrazioni IVA", GenereChiave::SiNo, "No",
     "Avvisa quando una fattura dello stesso fornitore con lo stesso numero e data c'è già."},
    {"IndirizzoVideoCorsi", "Aiuti", GenereChiave::Testo, "nessun indirizzo",
     "Indirizzo che il collegamento «video corsi» apre."},
});

constexpr auto kTabulati = std::to_array<std::string_view>({"STArticoli",
                                                            "STBilancioRiclassificato",
                                                            "STBilancioVerifica",
                                                            "STClienti",
                                                            "STEstrattoConto",
                                                            "STFornitori",
                                                            "STMovimentiPerConto",
                                                            "STRegistroIvaUnico",
                                                            "STScadenzePerConto",
                                                            "STScadenzePerData",
                                                            "StElenchiCliFor",
                                                            "StElenchiFatture",
                                                            "StGiornale",
                                                            "StLotti",
                                                            "StMovxCliFor",
                                                            "StMovxTipo",
                                                            "StOrd",
                                                            "StProdotti",
                                                            "StProvvigioniAgenti",
                                                            "StRegistriIva",
                                                            "StStatistiche",
                                                            "Cespiti",
                                                            "DistintaBase",
                                                            "Movimenti",
                                                            "MovimentiConto",
                                                            "RiBa",
                                                            "RicercaMovimenti",
                                                            "Righi",
                                                            "Utility"});

bool ConClasse(std::string_view chiave, std::string_view nome) {
  if (chiave.size() != nome.size() + 1) return false;
  const char classe = chiave.back();
  return (classe == 'C' || classe == 'F' || classe == 'c' || classe == 'f') &&
         UgualeTesto(chiave.substr(0, nome.size()), nome);
}

bool Tabulato(std::string_view chiave) {
  if (chiave.size() > kAllineamento.size() &&
      UgualeTesto(chiave.substr(chiave.size() - kAllineamento.size()), kAllineamento)) {
    chiave.remove_suffix(kAllineamento.size());
  }
  return std::any_of(kTabulati.begin(), kTabulati.end(),
                     [&](std::string_view nome) { return UgualeTesto(nome, chiave); });
}

}  // namespace

std::span<const ChiaveImpostazione> ChiaviDitta() {
  return kChiaviDitta;
}

std::span<const ChiaveImpostazione> ChiaviStazione() {
  return kStazione;
}

std::span<const std::string_view> FinestreTabulati() {
  return kTabulati;
}

bool ChiaveDitta(std::string_view chiave) {
  const auto corrisponde = [&](const ChiaveImpostazione& una) {
    return UgualeTesto(una.nome, chiave) || (una.perClasse && ConClasse(chiave, una.nome));
  };
  return std::any_of(kChiaviDitta.begin(), kChiaviDitta.end(), corrisponde) || Tabulato(chiave);
}

bool ChiaveStazione(std::string_view chiave) {
  return std::any_of(kStazione.begin(), kStazione.end(),
                     [&](const ChiaveImpostazione& una) { return UgualeTesto(una.nome, chiave); });
}

}  // namespace fenalto
