// The plain tables that the program's own are measured against.

#include <sqlite3.h>

#include <stdexcept>

#include "bench/GeneraDitta.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"

namespace fenalto::banco {
namespace {

constexpr const char* kTavole = R"(
CREATE TABLE Articoli (ID INTEGER PRIMARY KEY, Anno INTEGER NOT NULL, NumDoc INTEGER NOT NULL,
  Dt INTEGER NOT NULL, CFP TEXT NOT NULL, Conto TEXT NOT NULL, CfpA TEXT NOT NULL,
  ContoA TEXT NOT NULL, CREATOINAUTOMATICO INTEGER NOT NULL, Duplicabile INTEGER NOT NULL,
  DescrArtDupl TEXT NOT NULL, Riva TEXT NOT NULL, NProt INTEGER NOT NULL, UNIQUE (Anno, NumDoc));
CREATE TABLE Movimenti (Num INTEGER PRIMARY KEY, Anno INTEGER NOT NULL, NumDoc INTEGER NOT NULL,
  Posi INTEGER NOT NULL, Causale TEXT NOT NULL, Descrizione TEXT NOT NULL, CFP TEXT NOT NULL,
  Conto TEXT NOT NULL, ImpoDare INTEGER NOT NULL, ImpoAvere INTEGER NOT NULL,
  CFPControp TEXT NOT NULL, ContoControp TEXT NOT NULL, DiversiControp INTEGER NOT NULL,
  TIPORIGA INTEGER NOT NULL, CodIva TEXT NOT NULL, Imponibile INTEGER NOT NULL,
  Iva INTEGER NOT NULL, IvaInd INTEGER NOT NULL, Categoria TEXT NOT NULL, Commessa TEXT NOT NULL);
CREATE INDEX MovimentiChiave ON Movimenti (Anno, NumDoc);
CREATE TABLE Conti (Cod TEXT PRIMARY KEY, Descrizione TEXT NOT NULL, CFP TEXT NOT NULL,
  PatrEcon TEXT NOT NULL);
INSERT INTO Articoli SELECT ID, Anno, NumDoc, Dt, CFP, Conto, CfpA, ContoA, CREATOINAUTOMATICO,
  Duplicabile, DescrArtDupl, Riva, NProt FROM piena.Articoli;
INSERT INTO Movimenti SELECT Num, Anno, NumDoc, Posi, Causale, Descrizione, CFP, Conto, ImpoDare,
  ImpoAvere, CFPControp, ContoControp, DiversiControp, TIPORIGA, CodIva, Imponibile, Iva, IvaInd,
  Categoria, Commessa FROM piena.Movimenti;
INSERT INTO Conti SELECT Cod, Descrizione, CFP, PatrEcon FROM piena.Conti;
)";

}  // namespace

void GeneraNuda(const std::filesystem::path& tessarc, const std::filesystem::path& nuda) {
  if (std::filesystem::exists(nuda)) return;
  const auto provvisoria = nuda.string() + ".tmp";
  std::filesystem::remove(provvisoria);
  sqlite3* motore = nullptr;
  const auto esegui = [&](const std::string& sql) {
    if (sqlite3_exec(motore, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(motore));
    }
  };
  if (sqlite3_open(provvisoria.c_str(), &motore) != SQLITE_OK) throw std::runtime_error("nuda");
  engine::sqlite::RegistraMotore(motore);
  esegui("ATTACH '" + tessarc.string() + "' AS piena");
  esegui(std::string("BEGIN;") + kTavole + "COMMIT;");
  esegui("DETACH piena");
  sqlite3_close(motore);
  std::filesystem::rename(provvisoria, nuda);
}

}  // namespace fenalto::banco
