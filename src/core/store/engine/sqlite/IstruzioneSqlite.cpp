#include "core/store/engine/sqlite/IstruzioneSqlite.h"

#include <sqlite3.h>

#include <cmath>
#include <utility>

#include "core/store/engine/sqlite/ErroriSqlite.h"

namespace fenalto::engine::sqlite {
namespace {

/// Whole number of the engine's value; a real (an average of amounts) goes to the nearest, ties to
/// even.
std::int64_t InteroDi(sqlite3_value* valore) {
  if (sqlite3_value_type(valore) != SQLITE_FLOAT) return sqlite3_value_int64(valore);
  const double reale = std::nearbyint(sqlite3_value_double(valore));
  constexpr double kLimite = 9.2e18;
  if (!(std::abs(reale) < kLimite)) throw FuoriCampo();
  return static_cast<std::int64_t>(reale);
}

std::string_view TestoDi(sqlite3_value* valore) {
  const auto* testo = reinterpret_cast<const char*>(sqlite3_value_text(valore));
  return testo == nullptr
             ? std::string_view()
             : std::string_view(testo, static_cast<std::size_t>(sqlite3_value_bytes(valore)));
}

Valore ValoreDi(sqlite3_value* valore, Tipo tipo) {
  if (sqlite3_value_type(valore) == SQLITE_NULL) return {};
  switch (tipo) {
    case Tipo::Booleano:
      return sqlite3_value_double(valore) != 0;
    case Tipo::Intero:
      return InteroDi(valore);
    case Tipo::Importo:
      return Importo::DaDecimillesimi(InteroDi(valore));
    case Tipo::Reale:
      return sqlite3_value_double(valore);
    case Tipo::Data:
      return Data::DaGiorni(static_cast<std::int32_t>(InteroDi(valore)));
    default:
      return std::string(TestoDi(valore));
  }
}

void LeggiRiga(sqlite3_stmt* istruzione, RigheLette& righe) {
  righe.ApriRiga();
  for (std::size_t c = 0; c < righe.Larghezza(); ++c) {
    // One call that locks nothing further: the accessors by value cost half of those by column.
    sqlite3_value* valore = sqlite3_column_value(istruzione, static_cast<int>(c));
    const int genere = sqlite3_value_type(valore);
    if (genere == SQLITE_NULL) continue;
    switch (righe.TipoDi(c)) {
      case Tipo::Testo:
      case Tipo::Nullo:
        righe.ScriviTesto(c, TestoDi(valore));
        break;
      case Tipo::Reale:
        righe.ScriviReale(c, sqlite3_value_double(valore));
        break;
      case Tipo::Booleano:
        righe.ScriviIntero(c, sqlite3_value_double(valore) != 0 ? 1 : 0);
        break;
      default:
        righe.ScriviIntero(
            c, genere == SQLITE_INTEGER ? sqlite3_value_int64(valore) : InteroDi(valore));
    }
  }
  righe.ChiudiRiga();
}

void VerificaLegata(int rc) {
  if (rc == SQLITE_OK) return;
  if (rc == SQLITE_NOMEM)
    throw ErroreArchivio(ErroreArchivio::Causa::Memoria, "memoria insufficiente");
  throw ErroreArchivio(ErroreArchivio::Causa::Sql,
                       std::string("valore non accettato dall'archivio: ") + sqlite3_errstr(rc));
}

}  // namespace

IstruzioneSqlite::IstruzioneSqlite(sqlite3* connessione, std::string_view sql,
                                   std::filesystem::path file)
    : file_(std::move(file)) {
  const int rc = sqlite3_prepare_v3(connessione, sql.data(), static_cast<int>(sql.size()),
                                    SQLITE_PREPARE_PERSISTENT, &istruzione_, nullptr);
  if (rc != SQLITE_OK) throw ErroreMotore(connessione, rc, file_, sql);
}

IstruzioneSqlite::~IstruzioneSqlite() {
  sqlite3_finalize(istruzione_);
}

void IstruzioneSqlite::Lega(int indice, const Valore& valore) {
  switch (valore.Tipo()) {
    case Tipo::Nullo:
      return VerificaLegata(sqlite3_bind_null(istruzione_, indice));
    case Tipo::Booleano:
      return LegaIntero(indice, valore.Booleano() ? 1 : 0);
    case Tipo::Intero:
      return LegaIntero(indice, valore.Intero());
    case Tipo::Importo:
      return LegaIntero(indice, valore.Importo().Decimillesimi());
    case Tipo::Reale:
      return VerificaLegata(sqlite3_bind_double(istruzione_, indice, valore.Reale()));
    case Tipo::Data:
      return LegaIntero(indice, valore.Data().Giorni());
    case Tipo::Testo:
      return LegaTesto(indice, valore.RifTesto());
  }
}

void IstruzioneSqlite::LegaTesto(int indice, std::string_view testo) {
  VerificaLegata(sqlite3_bind_text64(istruzione_, indice, testo.data(), testo.size(),
                                     SQLITE_TRANSIENT, SQLITE_UTF8));
}

void IstruzioneSqlite::LegaIntero(int indice, std::int64_t intero) {
  VerificaLegata(sqlite3_bind_int64(istruzione_, indice, intero));
}

bool IstruzioneSqlite::Avanza() {
  const int rc = sqlite3_step(istruzione_);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  const ErroreArchivio errore =
      ErroreMotore(sqlite3_db_handle(istruzione_), rc, file_, sqlite3_sql(istruzione_));
  sqlite3_reset(istruzione_);
  throw errore;
}

bool IstruzioneSqlite::Leggi(RigheLette& righe, std::size_t quante) {
  while (quante-- > 0) {
    LeggiRiga(istruzione_, righe);
    if (!Avanza()) return false;
  }
  return true;
}

Valore IstruzioneSqlite::Campo(int colonna, Tipo tipo) const {
  return ValoreDi(sqlite3_column_value(istruzione_, colonna), tipo);
}

std::int64_t IstruzioneSqlite::Cambiate() const {
  return sqlite3_changes64(sqlite3_db_handle(istruzione_));
}

std::int64_t IstruzioneSqlite::Aggiunta() const {
  return sqlite3_last_insert_rowid(sqlite3_db_handle(istruzione_));
}

void IstruzioneSqlite::Azzera() noexcept {
  sqlite3_reset(istruzione_);
}

void IstruzioneSqlite::LasciaMemoria() noexcept {
  sqlite3_db_release_memory(sqlite3_db_handle(istruzione_));
}

}  // namespace fenalto::engine::sqlite
