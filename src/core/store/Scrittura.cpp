#include "core/store/Scrittura.h"

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
  const bool zero = valore.Tipo() == Tipo::Intero && valore.Intero() == 0;
  if (dati.cifre && zero) return Valore::Vuoto(dati.tipo);
  try {
    return valore.Come(dati.tipo);
  } catch (const std::logic_error&) {    // domain_error, out_of_range
  } catch (const std::runtime_error&) {  // FuoriCampo
  }
  throw ErroreArchivio(Causa::Sql, "«" + valore.Neutro() + "» non è un valore per il campo " +
                                       tabella.vista.nome + "." + dati.nome);
}

std::string DoveRiga(const sql::Dialetto& dialetto, std::size_t parametro) {
  std::string dove = " WHERE " + std::string(dialetto.Riga()) + " = ";
  dialetto.Parametro(dove, parametro);
  return dove;
}

namespace {

/// Adds the columns that mirror another table's, looked up by the key that the row is given: the
/// trigger that keeps them true then finds nothing to change, which spares a second write of the
/// row.
void AggiungiSpecchi(const DatiArchivio& archivio, const TabellaArchivio& tabella,
                     const std::vector<CampoScritto>& campi, std::string& nomi,
                     std::string& valori) {
  const sql::Dialetto& dialetto = archivio.Dialetto();
  const auto& colonne = tabella.vista.colonne;
  for (const sql::Specchio& specchio : tabella.vista.specchi) {
    const TabellaArchivio* altra = archivio.catalogo.Completa(specchio.tabella);
    if (altra == nullptr) continue;
    std::string dove;
    for (const std::string& parte : specchio.chiave) {
      const auto campo = std::ranges::find_if(
          campi, [&](const CampoScritto& c) { return UgualeTesto(colonne[c.first].nome, parte); });
      if (campo == campi.end()) break;
      dove += (dove.empty() ? " WHERE " : " AND ") + dialetto.Nome(parte) + " = ";
      dialetto.Parametro(dove, static_cast<std::size_t>(campo - campi.begin()) + 1);
      if (&parte != &specchio.chiave.back()) continue;
      for (const auto& [sua, propria] : specchio.colonne) {
        nomi += ',' + dialetto.Nome(propria);
        valori +=
            ",(SELECT " + dialetto.Nome(sua) + " FROM " + altra->vista.nomeMotore + dove + ")";
      }
    }
  }
}

}  // namespace

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
  const sql::Dialetto& dialetto = archivio.Dialetto();
  std::string nomi;
  std::string segnaposti;
  for (std::size_t i = 0; i < tutti.size(); ++i) {
    if (i > 0) {
      nomi += ',';
      segnaposti += ',';
    }
    nomi += dialetto.Nome(colonne[tutti[i].first].nome);
    dialetto.Parametro(segnaposti, i + 1);
  }
  AggiungiSpecchi(archivio, tabella, tutti, nomi, segnaposti);
  const std::string sql =
      "INSERT INTO " + tabella.vista.nomeMotore +
      (tutti.empty() ? " DEFAULT VALUES" : " (" + nomi + ") VALUES (" + segnaposti + ")");
  const Preparata preparata = archivio.Prepara(sql);
  for (std::size_t i = 0; i < tutti.size(); ++i) {
    preparata.Motore().Lega(static_cast<int>(i) + 1,
                            PerColonna(tabella, tutti[i].first, tutti[i].second));
  }
  archivio.nucleo->EseguiAzione(preparata, archivio, tabella.vista.nome);
  return preparata.Motore().Aggiunta();
}

bool ModificaRiga(DatiArchivio& archivio, const TabellaArchivio& tabella,
                  const std::vector<CampoScritto>& campi, std::int64_t identita) {
  const sql::Dialetto& dialetto = archivio.Dialetto();
  std::string sql = "UPDATE " + tabella.vista.nomeMotore + " SET ";
  for (std::size_t i = 0; i < campi.size(); ++i) {
    sql += i == 0 ? "" : ", ";
    sql += dialetto.Nome(tabella.vista.colonne[campi[i].first].nome) + " = ";
    dialetto.Parametro(sql, i + 1);
  }
  sql += DoveRiga(dialetto, campi.size() + 1);
  const Preparata preparata = archivio.Prepara(sql);
  int parametro = 0;
  for (const auto& [colonna, valore] : campi) {
    preparata.Motore().Lega(++parametro, PerColonna(tabella, colonna, valore));
  }
  preparata.Motore().Lega(++parametro, identita);
  return archivio.nucleo->EseguiAzione(preparata, archivio, tabella.vista.nome) > 0;
}

bool EliminaRiga(DatiArchivio& archivio, const TabellaArchivio& tabella, std::int64_t identita) {
  const Preparata preparata = archivio.Prepara("DELETE FROM " + tabella.vista.nomeMotore +
                                               DoveRiga(archivio.Dialetto(), 1));
  preparata.Motore().Lega(1, identita);
  return archivio.nucleo->EseguiAzione(preparata, archivio, tabella.vista.nome) > 0;
}

}  // namespace fenalto
