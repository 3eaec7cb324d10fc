// The part of Archivio that works across databases: scratch copies, links, rows copied.
#include <sqlite3.h>

#include <algorithm>

#include "core/store/Archivio.h"
#include "core/store/ArchivioInterno.h"
#include "core/store/PassiSchema.h"
#include "core/store/Scrittura.h"
#include "core/values/Testo.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;
using Causa = ErroreArchivio::Causa;

std::string DichiarazioneColonna(const sql::ColonnaCatalogo& colonna,
                                 const std::string& predefinito) {
  std::string riga = Virgolettato(colonna.nome) + " " + TipoDichiarato(colonna.tipo);
  if (!colonna.ammetteNull) riga += " NOT NULL";
  if (!predefinito.empty()) return riga + " DEFAULT (" + predefinito + ")";
  if (colonna.ammetteNull) return riga;
  return riga + (colonna.tipo == Tipo::Testo ? " DEFAULT ''" : " DEFAULT 0");
}

/// DDL of an empty table with the visible columns of `tabella` and `campoChiave` as its counter.
std::string DichiarazioneCopia(const TabellaArchivio& tabella, std::string_view campoChiave) {
  std::string colonne;
  bool chiaveVista = false;
  for (std::size_t i = 0; i < tabella.vista.colonne.size(); ++i) {
    const sql::ColonnaCatalogo& colonna = tabella.vista.colonne[i];
    if (colonna.nascosta) continue;
    if (!colonne.empty()) colonne += ", ";
    if (UgualeTesto(colonna.nome, campoChiave)) {
      chiaveVista = true;
      colonne += Virgolettato(colonna.nome) + " INTEGER PRIMARY KEY AUTOINCREMENT";
    } else {
      colonne += DichiarazioneColonna(colonna, tabella.predefiniti[i]);
    }
  }
  if (!chiaveVista) {
    colonne = Virgolettato(campoChiave) + " INTEGER PRIMARY KEY AUTOINCREMENT, " + colonne;
  }
  return "CREATE TABLE " + Virgolettato(tabella.vista.nome) + " (" + colonne + ")";
}

/// Columns that both tables show and that the destination doesn't fill by itself.
std::string ColonneComuni(const TabellaArchivio& origine, const TabellaArchivio& destinazione) {
  std::string comuni;
  for (const sql::ColonnaCatalogo& colonna : destinazione.vista.colonne) {
    const sql::ColonnaCatalogo* altra = origine.vista.Colonna(colonna.nome);
    if (colonna.contatore || colonna.nascosta || altra == nullptr || altra->nascosta) continue;
    if (!comuni.empty()) comuni += ", ";
    comuni += Virgolettato(colonna.nome);
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
                        const CatalogoArchivio& catalogo) {
  ColonneSpecchio specchi;
  for (const sql::Specchio& specchio : destinazione.vista.specchi) {
    const TabellaArchivio* altra = catalogo.Completa(specchio.tabella);
    if (altra == nullptr) continue;
    std::string chiave;
    for (const std::string& campo : specchio.chiave) {
      if (origine.vista.Colonna(campo) == nullptr) return {};
      if (!chiave.empty()) chiave += " AND ";
      chiave += altra->vista.nomeMotore + "." + Virgolettato(campo) + " = " +
                origine.vista.nomeMotore + "." + Virgolettato(campo);
    }
    for (const auto& [colonna, locale] : specchio.colonne) {
      specchi.colonne += ", " + Virgolettato(locale);
      specchi.letture += ", (SELECT " + altra->vista.nomeMotore + "." + Virgolettato(colonna) +
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
  sqlite3* connessione = nullptr;
  bool fatta = false;
  try {
    dati.nucleo->PrimaDiEseguire();
    // What a session that ended badly left behind.
    fs::remove(percorso);
    fs::remove(percorso.string() + "-journal");
    connessione = ApriConnessione(percorso, dati.nucleo->Opzioni().vfs, true);
    EseguiMotore(connessione,
                 "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA application_id = " +
                     std::to_string(kIdApplicazione) + "; " +
                     DichiarazioneCopia(completa, campoChiave),
                 percorso);
    fatta = true;
  } catch (const std::runtime_error&) {
    fatta = false;
  }
  sqlite3_close(connessione);
  return fatta;
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
  const std::string comuni = ColonneComuni(origine, destinazione);
  const ColonneSpecchio specchi = Specchi(origine, destinazione, altri.catalogo);
  std::string sql = "INSERT INTO " + destinazione.vista.nomeMotore + " (" + comuni +
                    specchi.colonne + ") SELECT " + comuni + specchi.letture + " FROM " +
                    origine.vista.nomeMotore;
  std::vector<Valore> valori;
  for (std::size_t i = 0; i < condizioni.size(); ++i) {
    const std::size_t colonna = ColonnaScrivibile(origine, condizioni[i].first);
    sql += i == 0 ? " WHERE " : " AND ";
    sql += Virgolettato(origine.vista.colonne[colonna].nome);
    if (condizioni[i].second.Nullo()) {
      sql += " IS NULL";
    } else {
      sql += " = ?";
      valori.push_back(PerColonna(origine, colonna, condizioni[i].second));
    }
  }
  const Preparata preparata = dati.Prepara(sql + " ORDER BY rowid");
  for (std::size_t i = 0; i < valori.size(); ++i) {
    LegaValore(preparata.Motore(), static_cast<int>(i) + 1, valori[i]);
  }
  return dati.nucleo->EseguiAzione(preparata, altri, destinazione.vista.nome);
}

}  // namespace fenalto
