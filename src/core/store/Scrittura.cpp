#include "core/store/Scrittura.h"

#include <sqlite3.h>

#include <algorithm>
#include <stdexcept>

#include "core/values/Testo.h"

namespace fenalto {

using Causa = ErroreArchivio::Causa;

std::size_t ColonnaScrivibile(const TabellaArchivio& tabella, std::string_view nome) {
  const auto& colonne = tabella.vista.colonne;
  for (std::size_t i = 0; i < colonne.size(); ++i) {
    if (!colonne[i].nascosta && UgualeTesto(colonne[i].nome, nome)) return i;
  }
  throw ErroreArchivio(Causa::Sql, "la tabella " + tabella.vista.nome + " non ha il campo «" +
                                       std::string(nome) + "»");
}

Valore PerColonna(const TabellaArchivio& tabella, std::size_t colonna, const Valore& valore) {
  const sql::ColonnaCatalogo& dati = tabella.vista.colonne[colonna];
  if (valore.Nullo()) return dati.ammetteNull ? Valore() : Valore::Vuoto(dati.tipo);
  try {
    return valore.Come(dati.tipo);
  } catch (const std::logic_error&) {    // domain_error, out_of_range
  } catch (const std::runtime_error&) {  // FuoriCampo
  }
  throw ErroreArchivio(Causa::Sql, "«" + valore.Neutro() + "» non è un valore per il campo " +
                                       tabella.vista.nome + "." + dati.nome);
}

std::int64_t InserisciRiga(DatiArchivio& archivio, const TabellaArchivio& tabella,
                           const std::vector<CampoScritto>& campi) {
  std::vector<CampoScritto> tutti = campi;
  const auto& colonne = tabella.vista.colonne;
  for (std::size_t i = 0; i < colonne.size(); ++i) {
    const bool daRiempire =
        !colonne[i].ammetteNull && !colonne[i].contatore && tabella.predefiniti[i].empty();
    if (daRiempire && std::ranges::find(campi, i, &CampoScritto::first) == campi.end()) {
      tutti.emplace_back(i, Valore::Vuoto(colonne[i].tipo));
    }
  }
  std::string nomi;
  std::string segnaposti;
  for (std::size_t i = 0; i < tutti.size(); ++i) {
    nomi += i == 0 ? "" : ",";
    nomi += Virgolettato(colonne[tutti[i].first].nome);
    segnaposti += i == 0 ? "?" : ",?";
  }
  const std::string sql =
      "INSERT INTO " + tabella.vista.nomeMotore +
      (tutti.empty() ? " DEFAULT VALUES" : " (" + nomi + ") VALUES (" + segnaposti + ")");
  const Preparata preparata = archivio.Prepara(sql);
  for (std::size_t i = 0; i < tutti.size(); ++i) {
    LegaValore(preparata.Motore(), static_cast<int>(i) + 1,
               PerColonna(tabella, tutti[i].first, tutti[i].second));
  }
  archivio.nucleo->EseguiAzione(preparata, archivio, tabella.vista.nome);
  return sqlite3_last_insert_rowid(archivio.nucleo->Connessione());
}

bool ModificaRiga(DatiArchivio& archivio, const TabellaArchivio& tabella,
                  const std::vector<CampoScritto>& campi, std::int64_t identita) {
  std::string sql = "UPDATE " + tabella.vista.nomeMotore + " SET ";
  for (std::size_t i = 0; i < campi.size(); ++i) {
    sql += i == 0 ? "" : ", ";
    sql += Virgolettato(tabella.vista.colonne[campi[i].first].nome) + " = ?";
  }
  sql += " WHERE rowid = ?";
  const Preparata preparata = archivio.Prepara(sql);
  int parametro = 0;
  for (const auto& [colonna, valore] : campi) {
    LegaValore(preparata.Motore(), ++parametro, PerColonna(tabella, colonna, valore));
  }
  LegaValore(preparata.Motore(), ++parametro, identita);
  return archivio.nucleo->EseguiAzione(preparata, archivio, tabella.vista.nome) > 0;
}

bool EliminaRiga(DatiArchivio& archivio, const TabellaArchivio& tabella, std::int64_t identita) {
  const Preparata preparata =
      archivio.Prepara("DELETE FROM " + tabella.vista.nomeMotore + " WHERE rowid = ?");
  LegaValore(preparata.Motore(), 1, identita);
  return archivio.nucleo->EseguiAzione(preparata, archivio, tabella.vista.nome) > 0;
}

}  // namespace fenalto
