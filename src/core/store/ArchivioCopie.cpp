// The part of Archivio that works across databases: scratch copies, links, rows copied.
#include <algorithm>

#include "core/store/Archivio.h"
#include "core/store/ArchivioInterno.h"
#include "core/store/Scrittura.h"
#include "core/values/Testo.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;
using Causa = ErroreArchivio::Causa;

/// Columns that both tables show and that the destination doesn't fill by itself.
std::string ColonneComuni(const TabellaArchivio& origine, const TabellaArchivio& destinazione,
                          const sql::Dialetto& dialetto) {
  std::string comuni;
  for (const sql::ColonnaCatalogo& colonna : destinazione.vista.colonne) {
    const sql::ColonnaCatalogo* altra = origine.vista.Colonna(colonna.nome);
    if (colonna.contatore || colonna.nascosta || altra == nullptr || altra->nascosta) continue;
    if (!comuni.empty()) comuni += ", ";
    comuni += dialetto.Nome(colonna.nome);
  }
  return comuni;
}

/// A mirror's column list and the look-ups that fill it in the same write, so that the trigger
/// which keeps it has nothing left to change.
struct ColonneSpecchio {
  std::string colonne;
  std::string letture;
};

ColonneSpecchio Specchi(const TabellaArchivio& origine, const TabellaArchivio& destinazione,
                        const CatalogoArchivio& catalogo, const sql::Dialetto& dialetto) {
  ColonneSpecchio specchi;
  for (const sql::Specchio& specchio : destinazione.vista.specchi) {
    const TabellaArchivio* altra = catalogo.Completa(specchio.tabella);
    if (altra == nullptr) continue;
    std::string chiave;
    for (const std::string& campo : specchio.chiave) {
      if (origine.vista.Colonna(campo) == nullptr) return {};
      if (!chiave.empty()) chiave += " AND ";
      chiave += altra->vista.nomeMotore + "." + dialetto.Nome(campo) + " = " +
                origine.vista.nomeMotore + "." + dialetto.Nome(campo);
    }
    for (const auto& [colonna, locale] : specchio.colonne) {
      specchi.colonne += ", " + dialetto.Nome(locale);
      specchi.letture += ", (SELECT " + altra->vista.nomeMotore + "." + dialetto.Nome(colonna) +
                         " FROM " + altra->vista.nomeMotore + " WHERE " + chiave + ")";
    }
  }
  return specchi;
}

}  // namespace

bool Archivio::CreaCopiaTemp(const fs::path& percorso, std::string_view campoChiave,
                             std::string_view tabella) {
  DatiArchivio& dati = *interno_->dati;
  const TabellaArchivio& completa = dati.Tabella(tabella);
  if (dati.nucleo->Aperto(percorso)) return false;
  try {
    dati.nucleo->PrimaDiEseguire();
    const OpzioniApertura& opzioni = dati.nucleo->Opzioni();
    dati.nucleo->Motore().CreaLavoro(percorso, {opzioni.attesa, opzioni.vfs}, completa,
                                     campoChiave);
  } catch (const std::runtime_error&) {
    return false;
  }
  return true;
}

void Archivio::CollegaTabella(const fs::path& percorso, std::string_view tabella) {
  DatiArchivio& dati = *interno_->dati;
  dati.Verifica();
  const TabellaArchivio& altra = dati.nucleo->Trova(percorso).Tabella(tabella);
  const TabellaArchivio* propria = dati.catalogo.Completa(tabella);
  if (propria != nullptr && !propria->collegata) {
    throw ErroreArchivio(
        Causa::Sql, "«" + dati.nomeFile + "» ha già una tabella «" + std::string(tabella) + "»");
  }
  dati.catalogo.Collega(altra);
  dati.cache.Svuota();
}

std::int64_t Archivio::CopiaRighe(const fs::path& percorsoDestinazione, std::string_view tabella,
                                  const std::vector<Coppia>& condizioni) {
  DatiArchivio& dati = *interno_->dati;
  const TabellaArchivio& origine = dati.Tabella(tabella);
  DatiArchivio& altri = dati.nucleo->Trova(percorsoDestinazione);
  const TabellaArchivio& destinazione = altri.Tabella(tabella);
  const sql::Dialetto& dialetto = dati.Dialetto();
  const std::string comuni = ColonneComuni(origine, destinazione, dialetto);
  const ColonneSpecchio specchi = Specchi(origine, destinazione, altri.catalogo, dialetto);
  std::string sql = "INSERT INTO " + destinazione.vista.nomeMotore + " (" + comuni +
                    specchi.colonne + ") SELECT " + comuni + specchi.letture + " FROM " +
                    origine.vista.nomeMotore;
  std::vector<Valore> valori;
  for (std::size_t i = 0; i < condizioni.size(); ++i) {
    const std::size_t colonna = ColonnaScrivibile(origine, condizioni[i].first);
    sql += i == 0 ? " WHERE " : " AND ";
    sql += dialetto.Nome(origine.vista.colonne[colonna].nome);
    if (condizioni[i].second.Nullo()) {
      sql += " IS NULL";
    } else {
      sql += " = ";
      dialetto.Parametro(sql, valori.size() + 1);
      valori.push_back(PerColonna(origine, colonna, condizioni[i].second));
    }
  }
  const Preparata preparata =
      dati.Prepara(sql + " ORDER BY " + std::string(dialetto.Riga()), altri.base);
  for (std::size_t i = 0; i < valori.size(); ++i) {
    preparata.Motore().Lega(static_cast<int>(i) + 1, valori[i]);
  }
  return dati.nucleo->EseguiAzione(preparata, altri, destinazione.vista.nome);
}

}  // namespace fenalto
