#include "core/session/Cestino.h"

#include <algorithm>
#include <system_error>

namespace fenalto {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLungoGiorno = 10;  // "2026-11-25"
constexpr std::size_t kLungoQuando = 17;  // "2026-11-25 10.00 "

fs::path CartellaCestino(const Ditte& ditte) {
  return ditte.CartellaPerRegola(kNomeCestino);
}

}  // namespace

std::vector<VoceCestino> VociCestino(const Ditte& ditte) {
  std::vector<VoceCestino> voci;
  std::error_code errore;
  for (auto voce = fs::directory_iterator(CartellaCestino(ditte), errore);
       !errore && voce != fs::directory_iterator(); voce.increment(errore)) {
    const std::string nome = voce->path().filename().string();
    const auto giorno = Data::DaIso(nome.substr(0, kLungoGiorno));
    if (!giorno || nome.size() <= kLungoQuando) continue;
    voci.push_back({voce->path(), nome.substr(kLungoQuando), *giorno});
  }
  std::sort(voci.begin(), voci.end(),
            [](const VoceCestino& a, const VoceCestino& b) { return a.cartella < b.cartella; });
  return voci;
}

fs::path NuovaVoceCestino(const Ditte& ditte, const std::string& nome, const std::string& adesso) {
  const fs::path cestino = CartellaCestino(ditte);
  const std::string radice = adesso + " " + nome;
  fs::path voce = cestino / radice;
  std::error_code errore;
  for (int n = 2; fs::exists(voce, errore); ++n) {
    std::string altro = radice;
    voce = cestino / altro.append(" ").append(std::to_string(n));
  }
  return voce;
}

int SvuotaCestino(const Ditte& ditte, Data oggi, int giorni) {
  int tolte = 0;
  for (const VoceCestino& voce : VociCestino(ditte)) {
    if (oggi.Giorni() - voce.quando.Giorni() < giorni) continue;
    std::error_code errore;
    fs::remove_all(voce.cartella, errore);
    if (!errore) ++tolte;
  }
  fs::path cestino = CartellaCestino(ditte);
  std::error_code errore;
  fs::remove(cestino, errore);  // only when empty
  return tolte;
}

}  // namespace fenalto
