#include "core/store/engine/sqlite/ErroriSqlite.h"

#include <sqlite3.h>

#include <string>

namespace fenalto::engine::sqlite {
namespace {

using Causa = ErroreArchivio::Causa;

/// What follows the last ": " of the engine's message: the columns of a broken constraint.
std::string Colonne(const std::string& messaggio) {
  const auto due = messaggio.rfind(": ");
  return due == std::string::npos ? messaggio : messaggio.substr(due + 2);
}

ErroreArchivio Vincolo(int codice, const std::string& messaggio, const std::string& file) {
  const std::string dove = Colonne(messaggio);
  switch (codice) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return {Causa::Vincolo, "chiave già presente (" + dove + ") in " + file +
                                  ": indicarne un'altra o modificare il record esistente"};
    case SQLITE_CONSTRAINT_NOTNULL:
      return {Causa::Vincolo, "il campo " + dove + " non può restare senza valore, in " + file};
    default:
      return {Causa::Vincolo, "dati non ammessi in " + file + ": " + messaggio};
  }
}

/// Codes that say which kind of trouble the file itself is in.
ErroreArchivio DelFile(int codice, const std::string& messaggio, const std::string& file) {
  switch (codice & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {
          Causa::Occupato,
          "l'archivio " + file + " è occupato da un'altra stazione: riprovare fra qualche istante"};
    case SQLITE_FULL:
      return {Causa::DiscoPieno, "disco pieno: manca lo spazio per scrivere in " + file +
                                     "; liberare spazio e ripetere l'operazione"};
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return {Causa::SolaLettura,
              "l'archivio " + file +
                  " è in sola lettura: dare il permesso di scrittura al file e alla sua cartella"};
    case SQLITE_NOTADB:
      return {Causa::Danneggiato, file +
                                      " non è un archivio o è danneggiato: ripristinare una copia "
                                      "dalla cartella Copie"};
    case SQLITE_CORRUPT:
      return {Causa::Danneggiato, "l'archivio " + file +
                                      " è danneggiato: chiudere il programma su ogni stazione e "
                                      "ripristinare una copia dalla cartella Copie"};
    case SQLITE_CANTOPEN:
      return {Causa::Mancante, "impossibile aprire " + file +
                                   ": verificare che il file esista e che la sua cartella permetta "
                                   "di scrivere"};
    case SQLITE_NOMEM:
      return {Causa::Memoria, "memoria insufficiente lavorando su " + file +
                                  ": chiudere altri programmi e ripetere l'operazione"};
    case SQLITE_IOERR:
      return {Causa::Altro, "errore di lettura o scrittura su " + file +
                                ": verificare il disco o la rete (" + messaggio + ")"};
    default:
      return {Causa::Altro, "errore su " + file + ": " + messaggio};
  }
}

}  // namespace

ErroreArchivio ErroreMotore(sqlite3* connessione, int codice, const std::filesystem::path& file,
                            std::string_view testo) {
  const char* frase = connessione != nullptr ? sqlite3_errmsg(connessione) : sqlite3_errstr(codice);
  const std::string messaggio = frase != nullptr ? frase : "";
  const std::string nome = "«" + file.string() + "»";
  switch (codice & 0xff) {
    case SQLITE_CONSTRAINT:
      return Vincolo(codice, messaggio, nome);
    case SQLITE_ERROR:
    case SQLITE_MISUSE:
    case SQLITE_RANGE:
    case SQLITE_MISMATCH:
    case SQLITE_TOOBIG: {
      std::string tutto = "istruzione non eseguita su " + nome + ": " + messaggio;
      if (!testo.empty()) tutto += " nel testo «" + std::string(testo) + "»";
      return {Causa::Sql, tutto};
    }
    default:
      return DelFile(codice, messaggio, nome);
  }
}

}  // namespace fenalto::engine::sqlite
