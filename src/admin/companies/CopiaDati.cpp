#include "admin/companies/CopiaDati.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "core/archives/Riferimenti.h"
#include "core/session/Csv.h"
#include "core/session/FileTesto.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::admin {

namespace fs = std::filesystem;

namespace {

using archives::SceltaDati;
using archives::Sorte;
using archives::TabellaDitta;

bool VaConLei(const TabellaDitta& tabella, const std::set<SceltaDati>& tenute) {
  return tabella.sorte == Sorte::Tenuta ||
         (tabella.sorte == Sorte::Scelta && tenute.contains(tabella.scelta));
}

void CopiaRighe(Archivio& da, Archivio& a, const TabellaDitta& tabella) {
  std::string sql = std::string("select * from ") + tabella.tabella;
  if (tabella.condizione != nullptr) sql.append(" where ").append(tabella.condizione);
  Rs righe = da.Recordset(sql);
  std::vector<Coppia> campi;
  for (const auto& colonna : righe.Colonne()) campi.emplace_back(colonna.nome, Valore());
  for (; !righe.Eof(); righe.MoveNext()) {
    for (std::size_t i = 0; i < campi.size(); ++i) campi[i].second = righe.Fields(i);
    a.Inserisci(tabella.tabella, campi);
  }
}

/// Empties every field that names an archive which has stayed behind; a row that says nothing
/// without it stays behind too.
void SciogliRiferimenti(BasiDati& a, const std::set<std::string>& rimasti) {
  for (const archives::Riferimento& r : archives::TavolaRiferimenti()) {
    if (!rimasti.contains(SenzaMaiuscole(r.archivio))) continue;
    std::string sql = r.cade ? "delete * from " + std::string(r.tabella)
                             : "update " + std::string(r.tabella) + " set " + r.campo + "=''";
    if (*r.condizione != '\0') sql.append(" where ").append(r.condizione);
    a.PerChiave(r.chiave).Esegui(sql);
  }
}

bool HaCodice(Archivio& archivio, const char* tabella, const std::string& codice) {
  return codice.empty() || !archivio
                                .Singolo("select Cod from " + std::string(tabella) + " where " +
                                         sql::Criterio("Cod", "=", codice))
                                .Nullo();
}

/// The register's fields that name codes, and the archive of each.
constexpr std::pair<const char*, const char*> kCodiciRegistro[] = {{"Conto", "Conti"},
                                                                   {"ContoCassa", "Conti"},
                                                                   {"ContoRicaviCorrisp", "Conti"},
                                                                   {"CauGiroCorrisp", "Causali"},
                                                                   {"CodIva", "CodiciIva"}};

/// The registers that the program itself writes to, as in the model company. A code of the model
/// that this company's archives don't have stays what it was, or empty.
void RifaiRegistriFissi(Archivio& a, const fs::path& cartellaDati) {
  constexpr std::array<std::string_view, 8> kFissi = {"2", "7", "8", "8A", "4", "5", "1V", "3V"};
  const auto testo = LeggiFileTesto(cartellaDati / "modello" / "tessarc" / "RegistriIva.csv");
  if (!testo) throw std::runtime_error(testo.Errore().messaggio);
  const auto csv = LeggiCsv(testo.Valore());
  if (!csv) throw std::runtime_error("RegistriIva.csv: " + csv.Errore().messaggio);
  const sql::TabellaCatalogo* tabella = a.Catalogo().Tabella("RegistriIva");
  for (const auto& riga : csv.Valore().righe) {
    std::map<std::string, std::string> modello;
    for (std::size_t i = 0; i < riga.campi.size(); ++i) {
      modello[csv.Valore().nomi[i]] = riga.campi[i];
    }
    if (std::find(kFissi.begin(), kFissi.end(), modello["Cod"]) == kFissi.end()) continue;
    const std::string dove = " where " + sql::Criterio("Cod", "=", modello["Cod"]);
    {
      const Rs prima = a.Recordset("select * from RegistriIva" + dove);
      for (const auto& [campo, archivio] : kCodiciRegistro) {
        if (HaCodice(a, archivio, modello[campo])) continue;
        modello[campo] = prima.Eof() ? "" : prima.Fields(campo).Testo();
      }
    }
    a.Esegui("delete * from RegistriIva" + dove);
    std::vector<Coppia> campi;
    for (const auto& [campo, valore] : modello) {
      campi.emplace_back(campo, Valore(valore).Come(tabella->Colonna(campo)->tipo));
    }
    a.Inserisci("RegistriIva", campi);
  }
}

}  // namespace

void CopiaDati(BasiDati& da, BasiDati& a, const std::set<SceltaDati>& tenute,
               const fs::path& cartellaDati) {
  // Held so that no other station changes what is read half way through.
  const Transazione ferme(da);
  std::set<std::string> rimasti;
  for (const TabellaDitta& tabella : archives::TavolaTabelle()) {
    // What the schema itself writes into a new table comes from the old one, as it is there.
    if (a.PerChiave(tabella.chiave).Catalogo().Tabella(tabella.tabella) == nullptr) continue;
    a.PerChiave(tabella.chiave).Esegui("delete * from " + std::string(tabella.tabella));
  }
  for (const TabellaDitta& tabella : archives::TavolaTabelle()) {
    Archivio& destinazione = a.PerChiave(tabella.chiave);
    if (destinazione.Catalogo().Tabella(tabella.tabella) == nullptr) continue;
    if (VaConLei(tabella, tenute)) {
      CopiaRighe(da.PerChiave(tabella.chiave), destinazione, tabella);
    } else {
      rimasti.insert(SenzaMaiuscole(tabella.tabella));
    }
  }
  SciogliRiferimenti(a, rimasti);
  a.Tessarc().Esegui("update RegistriIva set Importochiusura=0, UltProtSt=0");
  a.Scadenzario().Esegui("update Banche set NUltDistinta=0, NUltDistintaBonifici=0");
  RifaiRegistriFissi(a.Tessarc(), cartellaDati);
}

}  // namespace fenalto::admin
