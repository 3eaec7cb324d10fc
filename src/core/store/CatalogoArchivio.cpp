#include "core/store/CatalogoArchivio.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "core/values/Testo.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> Spezza(const std::string& elenco) {
  std::vector<std::string> parti;
  std::istringstream flusso(elenco);
  for (std::string parte; std::getline(flusso, parte, ',');) parti.emplace_back(Rifila(parte));
  return parti;
}

}  // namespace

VisteArchivio LeggiViste(const fs::path& cartella) {
  VisteArchivio viste;
  std::error_code errore;
  for (const auto& voce : fs::directory_iterator(cartella, errore)) {
    if (voce.path().extension() != ".sql") continue;
    std::ifstream flusso(voce.path());
    std::string testo;
    for (std::string riga; std::getline(flusso, riga);) {
      if (Rifila(riga).starts_with("--")) continue;
      testo += riga + "\n";
    }
    const std::string nome = voce.path().stem().string();
    viste[SenzaMaiuscole(nome)] = {nome, std::string(Rifila(testo))};
  }
  return viste;
}

void CatalogoArchivio::Leggi(engine::Connessione& connessione, const std::string& base) {
  tabelle_.clear();
  for (engine::Tabella& tabella : connessione.Tabelle(base)) {
    std::string chiave = SenzaMaiuscole(tabella.vista.nome);
    tabelle_.insert_or_assign(std::move(chiave), TabellaArchivio{std::move(tabella)});
  }
  LeggiSpecchi(connessione, base);
}

void CatalogoArchivio::LeggiSpecchi(engine::Connessione& connessione, const std::string& base) {
  if (!connessione.HaTabella(base, "_specchi")) return;
  const auto lettura = connessione.Prepara(
      base, "SELECT tabella, altra, chiave, colonna, specchio FROM " +
                connessione.NomeTabella(base, "_specchi") + " ORDER BY tabella, altra, colonna");
  const auto campo = [&](int colonna) { return lettura->Campo(colonna, Tipo::Testo).Testo(); };
  while (lettura->Avanza()) {
    const auto trovata = tabelle_.find(SenzaMaiuscole(campo(0)));
    if (trovata == tabelle_.end()) continue;
    auto& specchi = trovata->second.vista.specchi;
    const std::string altra = campo(1);
    auto stesso = std::ranges::find(specchi, altra, &sql::Specchio::tabella);
    if (stesso == specchi.end()) {
      specchi.push_back({altra, Spezza(campo(2)), {}});
      stesso = std::prev(specchi.end());
    }
    stesso->colonne.emplace_back(campo(3), campo(4));
  }
}

void CatalogoArchivio::Collega(const TabellaArchivio& tabella) {
  TabellaArchivio copia = tabella;
  copia.collegata = true;
  // Here the mirror's other table may be another one of that name.
  copia.vista.specchi.clear();
  tabelle_[SenzaMaiuscole(tabella.vista.nome)] = std::move(copia);
}

const sql::TabellaCatalogo* CatalogoArchivio::Tabella(std::string_view nome) const {
  const TabellaArchivio* tabella = Completa(nome);
  return tabella != nullptr ? &tabella->vista : nullptr;
}

const TabellaArchivio* CatalogoArchivio::Completa(std::string_view nome) const {
  const auto trovata = tabelle_.find(SenzaMaiuscole(nome));
  return trovata != tabelle_.end() ? &trovata->second : nullptr;
}

const sql::VistaCatalogo* CatalogoArchivio::Vista(std::string_view nome) const {
  if (viste_ == nullptr) return nullptr;
  const auto trovata = viste_->find(SenzaMaiuscole(nome));
  return trovata != viste_->end() ? &trovata->second : nullptr;
}

bool CatalogoArchivio::OgniSpecchioDi(std::string_view altra,
                                      const std::function<bool(const std::string&)>& prova) const {
  for (const auto& [chiave, tabella] : tabelle_) {
    for (const sql::Specchio& specchio : tabella.vista.specchi) {
      if (UgualeTesto(specchio.tabella, altra) && prova(tabella.vista.nomeMotore)) return true;
    }
  }
  return false;
}

}  // namespace fenalto
