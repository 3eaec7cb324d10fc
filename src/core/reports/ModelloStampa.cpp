#include "core/reports/ModelloStampa.h"

#include <algorithm>
#include <system_error>

#include "core/reports/LettoreModello.h"
#include "core/session/FileTesto.h"
#include "core/values/Testo.h"

namespace fenalto::reports {

namespace fs = std::filesystem;

Esito<ModelloStampa> ModelloStampa::Leggi(const fs::path& file) {
  std::error_code errore;
  if (!fs::exists(file, errore)) {
    return Errore{"il modello di stampa «" + file.string() +
                  "» non esiste: rimetterlo al suo posto, o stampare in formato testo"};
  }
  const auto testo = LeggiFileTesto(file);
  if (!testo) return testo.Errore();
  return LettoreModello(file.string(), file.parent_path()).Leggi(testo.Valore());
}

Esito<ModelloStampa> ModelloStampa::DaTesto(std::string_view testo, const std::string& nome) {
  return LettoreModello(nome, std::nullopt).Leggi(testo);
}

const CampoModello* ModelloStampa::Campo(std::string_view nome) const {
  const auto trovato = campi_.find(SenzaMaiuscole(nome));
  return trovato == campi_.end() ? nullptr : &trovato->second;
}

bool ModelloStampa::VaACapo() const {
  return std::ranges::any_of(campi_, [](const auto& c) { return c.second.aCapo; });
}

std::pair<int, int> ModelloStampa::LarghezzaCorpo() const {
  int da = formato_.larghezza;
  int a = 0;
  for (const auto& [nome, campo] : campi_) {
    if (!nome.starts_with("r_")) continue;
    da = std::min(da, campo.x);
    a = std::max(a, campo.x + campo.larghezza);
  }
  if (da < a) return {da, a};
  return {formato_.margine, formato_.larghezza - formato_.margine};
}

}  // namespace fenalto::reports
