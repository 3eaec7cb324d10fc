#include "core/store/engine/sqlite/LavoroSqlite.h"

#include <sqlite3.h>

#include "core/store/engine/sqlite/ConnessioneSqlite.h"
#include "core/store/engine/sqlite/DialettoSqlite.h"
#include "core/values/Testo.h"

namespace fenalto::engine::sqlite {
namespace {

/// The type a column is declared with, collation included.
std::string TipoDichiarato(Tipo tipo) {
  switch (tipo) {
    case Tipo::Booleano:
      return "SINO";
    case Tipo::Intero:
      return "INTEGER";
    case Tipo::Importo:
      return "IMPORTO";
    case Tipo::Reale:
      return "REALE";
    case Tipo::Data:
      return "DATA";
    default:
      return std::string("TEXT COLLATE ") + kCollazione;
  }
}

std::string DichiarazioneColonna(const sql::ColonnaCatalogo& colonna,
                                 const std::string& predefinito) {
  std::string riga = DialettoSqlite().Nome(colonna.nome) + " " + TipoDichiarato(colonna.tipo);
  if (!colonna.ammetteNull) riga += " NOT NULL";
  if (!predefinito.empty()) return riga + " DEFAULT (" + predefinito + ")";
  if (colonna.ammetteNull) return riga;
  return riga + (colonna.tipo == Tipo::Testo ? " DEFAULT ''" : " DEFAULT 0");
}

/// DDL of an empty table with the visible columns of `tabella` and `campoChiave` as its counter.
std::string DichiarazioneCopia(const Tabella& tabella, std::string_view campoChiave) {
  std::string colonne;
  bool chiaveVista = false;
  for (std::size_t i = 0; i < tabella.vista.colonne.size(); ++i) {
    const sql::ColonnaCatalogo& colonna = tabella.vista.colonne[i];
    if (colonna.nascosta) continue;
    if (!colonne.empty()) colonne += ", ";
    if (UgualeTesto(colonna.nome, campoChiave)) {
      chiaveVista = true;
      colonne += DialettoSqlite().Nome(colonna.nome) + " INTEGER PRIMARY KEY AUTOINCREMENT";
    } else {
      colonne += DichiarazioneColonna(colonna, tabella.predefiniti[i]);
    }
  }
  if (!chiaveVista) {
    colonne = DialettoSqlite().Nome(campoChiave) + " INTEGER PRIMARY KEY AUTOINCREMENT, " + colonne;
  }
  return "CREATE TABLE " + DialettoSqlite().Nome(tabella.vista.nome) + " (" + colonne + ")";
}

}  // namespace

void CreaLavoroFile(const std::filesystem::path& file, const Opzioni& opzioni,
                    const Tabella& tabella, std::string_view campoChiave) {
  // What a session that ended badly left behind.
  std::filesystem::remove(file);
  std::filesystem::remove(Giornale(file));
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> connessione(
      ApriConnessione(file, opzioni.vfs, true), sqlite3_close);
  EseguiMotore(connessione.get(),
               "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA application_id = " +
                   std::to_string(kIdApplicazione) + "; " +
                   DichiarazioneCopia(tabella, campoChiave),
               file);
}

}  // namespace fenalto::engine::sqlite
