#include "runner/Tasti.h"

#include <array>
#include <charconv>

#include "core/values/Testo.h"

namespace fenalto::copione {
namespace {

constexpr auto kNomi = std::to_array<std::string_view>(
    {"Invio", "Tab", "Esc", "Spazio", "Ins", "Canc", "Su", "Giu", "F1",  "F2",
     "F3",    "F4",  "F5",  "F6",     "F7",  "F8",   "F9", "F10", "F11", "F12"});

/// Takes a modifier off the front of the text.
bool Togli(std::string_view& testo, std::string_view prefisso) {
  if (testo.size() <= prefisso.size() || !UgualeTesto(testo.substr(0, prefisso.size()), prefisso)) {
    return false;
  }
  testo.remove_prefix(prefisso.size());
  return true;
}

}  // namespace

std::optional<Tasto> TastoDi(std::string_view testo) {
  Tasto tasto;
  for (bool altri = true; altri;) {
    altri = false;
    if (Togli(testo, "Ctrl+")) altri = tasto.ctrl = true;
    if (Togli(testo, "Maiusc+")) altri = tasto.maiusc = true;
    if (Togli(testo, "Alt+")) altri = tasto.alt = true;
  }
  for (const auto nome : kNomi) {
    if (!UgualeTesto(nome, testo)) continue;
    tasto.nome = nome;
    return tasto;
  }
  const bool solo = testo.size() == 1 &&
                    ((testo[0] >= '0' && testo[0] <= '9') || (testo[0] >= 'a' && testo[0] <= 'z') ||
                     (testo[0] >= 'A' && testo[0] <= 'Z'));
  if (!solo) return std::nullopt;
  tasto.nome = testo;
  return tasto;
}

std::optional<Data> GiornoDi(std::string_view testo) {
  int parti[3] = {};
  for (int i = 0; i < 3; ++i) {
    const auto barra = i < 2 ? testo.find('/') : testo.size();
    if (barra == std::string_view::npos) return std::nullopt;
    const auto parte = testo.substr(0, barra);
    const auto* fine = parte.data() + parte.size();
    const auto [dove, errore] = std::from_chars(parte.data(), fine, parti[i]);
    if (parte.empty() || parte.size() > (i < 2 ? 2U : 4U) || errore != std::errc() ||
        dove != fine) {
      return std::nullopt;
    }
    testo.remove_prefix(i < 2 ? barra + 1 : barra);
  }
  if (parti[2] < 1000) return std::nullopt;
  return Data::DaGma(parti[0], parti[1], parti[2]);
}

}  // namespace fenalto::copione
