#include <sqlite3.h>

#include <charconv>

#include "core/store/NucleoBasi.h"
#include "core/store/engine/sqlite/DialettoSqlite.h"

namespace fenalto {

using Causa = ErroreArchivio::Causa;

void DatiArchivio::Verifica() const {
  if (chiuso) throw ErroreArchivio(Causa::Mancante, "l'archivio «" + nomeFile + "» è chiuso");
}

const TabellaArchivio& DatiArchivio::Tabella(std::string_view nome) const {
  Verifica();
  const TabellaArchivio* tabella = catalogo.Completa(nome);
  if (tabella != nullptr) return *tabella;
  throw ErroreArchivio(Causa::Sql,
                       "in «" + nomeFile + "» non c'è la tabella «" + std::string(nome) + "»");
}

Preparata DatiArchivio::Prepara(const std::string& sqlMotore) {
  Verifica();
  // No shape of the dialect begins so.
  const std::string chiave = '\x01' + sqlMotore;
  auto voce = cache.Cerca(chiave);
  if (!voce) voce = cache.Aggiungi(chiave, nullptr, sqlMotore);
  return {nucleo->Connessione(), std::move(voce), nomeFile};
}

Preparata DatiArchivio::PreparaForma(std::string_view testo, const sql::Forma& forma) {
  Verifica();
  auto voce = cache.Cerca(forma.chiave);
  if (!voce) {
    auto tradotta = sql::Traduci(testo, catalogo, engine::sqlite::DialettoSqlite());
    if (!tradotta) throw ErroreArchivio(Causa::Sql, tradotta.Errore().Messaggio(testo));
    auto piano = std::make_shared<const PianoIstruzione>(std::move(tradotta).Valore());
    std::string sql = piano->istr.sql;
    voce = cache.Aggiungi(forma.chiave, std::move(piano), std::move(sql));
  }
  return {nucleo->Connessione(), std::move(voce), nomeFile};
}

void LegaValore(sqlite3_stmt* istruzione, int indice, const Valore& v) {
  int rc = SQLITE_OK;
  switch (v.Tipo()) {
    case Tipo::Nullo:
      rc = sqlite3_bind_null(istruzione, indice);
      break;
    case Tipo::Booleano:
      rc = sqlite3_bind_int(istruzione, indice, v.Booleano() ? 1 : 0);
      break;
    case Tipo::Intero:
      rc = sqlite3_bind_int64(istruzione, indice, v.Intero());
      break;
    case Tipo::Importo:
      rc = sqlite3_bind_int64(istruzione, indice, v.Importo().Decimillesimi());
      break;
    case Tipo::Reale:
      rc = sqlite3_bind_double(istruzione, indice, v.Reale());
      break;
    case Tipo::Data:
      rc = sqlite3_bind_int64(istruzione, indice, v.Data().Giorni());
      break;
    case Tipo::Testo:
      rc = sqlite3_bind_text64(istruzione, indice, v.RifTesto().data(), v.RifTesto().size(),
                               SQLITE_TRANSIENT, SQLITE_UTF8);
      break;
  }
  if (rc == SQLITE_NOMEM) throw ErroreArchivio(Causa::Memoria, "memoria insufficiente");
  if (rc != SQLITE_OK) {
    throw ErroreArchivio(Causa::Sql,
                         std::string("valore non accettato dall'archivio: ") + sqlite3_errstr(rc));
  }
}

void LegaLetterali(sqlite3_stmt* istruzione, const sql::Istruzione& piano, const sql::Forma& forma,
                   std::string_view testo) {
  for (std::size_t i = 0; i < piano.parametri.size(); ++i) {
    const sql::ParametroSql& parametro = piano.parametri[i];
    const sql::Letterale& letterale = forma.letterali[parametro.letterale];
    const int indice = static_cast<int>(i) + 1;
    // The two commonest kinds need no Valore between.
    if (parametro.legame == sql::Legame::Testo &&
        letterale.genere == sql::Letterale::Genere::Testo) {
      if (sqlite3_bind_text64(istruzione, indice, letterale.testo.data(), letterale.testo.size(),
                              SQLITE_TRANSIENT, SQLITE_UTF8) == SQLITE_OK) {
        continue;
      }
    } else if (parametro.legame == sql::Legame::Intero &&
               letterale.genere == sql::Letterale::Genere::Numero) {
      std::int64_t numero = 0;
      const char* fine = letterale.testo.data() + letterale.testo.size();
      const auto letto = std::from_chars(letterale.testo.data(), fine, numero);
      if (letto.ec == std::errc() && letto.ptr == fine) {
        sqlite3_bind_int64(istruzione, indice, numero);
        continue;
      }
    }
    const auto valore = sql::ValoreLegato(letterale, parametro.legame);
    if (!valore) throw ErroreArchivio(Causa::Sql, valore.Errore().Messaggio(testo));
    LegaValore(istruzione, indice, valore.Valore());
  }
}

}  // namespace fenalto
