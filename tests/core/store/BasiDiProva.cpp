#include "core/store/BasiDiProva.h"

#include <sqlite3.h>

#include <fstream>

#include "core/store/engine/sqlite/ConnessioneSqlite.h"

namespace fenalto::prova {

namespace fs = std::filesystem;

namespace {

constexpr const char* kTessarc = R"(
CREATE TABLE Articoli (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Anno INTEGER NOT NULL DEFAULT 0,
  NumDoc INTEGER NOT NULL DEFAULT 0,
  Dt DATA NOT NULL DEFAULT 0,
  Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Ep SINO NOT NULL DEFAULT 0,
  Cambio REALE,
  UNIQUE (Anno, NumDoc)
);
CREATE TABLE Movimenti (
  Num INTEGER PRIMARY KEY AUTOINCREMENT,
  Anno INTEGER NOT NULL DEFAULT 0,
  NumDoc INTEGER NOT NULL DEFAULT 0,
  Causale TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Conto TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  ImpoDare IMPORTO NOT NULL DEFAULT 0,
  _Dt DATA
);
CREATE TABLE Causali (
  Cod TEXT NOT NULL DEFAULT '' COLLATE FENALTO PRIMARY KEY,
  Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO
);
CREATE TABLE SenzaChiave (Testo TEXT NOT NULL COLLATE FENALTO, Nota TEXT COLLATE FENALTO);
CREATE TABLE _specchi (tabella TEXT, altra TEXT, chiave TEXT, colonna TEXT, specchio TEXT);
INSERT INTO _specchi VALUES ('Movimenti', 'Articoli', 'Anno,NumDoc', 'Dt', '_Dt');
CREATE TRIGGER _Articoli_inserito AFTER INSERT ON Articoli BEGIN
  UPDATE Movimenti SET _Dt = NEW.Dt WHERE Anno = NEW.Anno AND NumDoc = NEW.NumDoc;
END;
)";

constexpr const char* kScadenzario = R"(
CREATE TABLE Scadenze (
  Numero INTEGER NOT NULL DEFAULT 0 UNIQUE,
  Conto TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Importo IMPORTO NOT NULL DEFAULT 0
);
)";

constexpr const char* kVista = R"(-- Rows with the text of their causal.
SELECT Movimenti.*, Causali.Descrizione AS DescrCausale
FROM Movimenti LEFT JOIN Causali ON Movimenti.Causale = Causali.Cod
ORDER BY Movimenti.Num
)";

}  // namespace

void BasiDiProva::SetUp() {
  std::string modello = (fs::temp_directory_path() / "fenalto-store-XXXXXX").string();
  ASSERT_NE(mkdtemp(modello.data()), nullptr);
  cartella = modello;
  percorsi = {cartella / "Cont32.mdb", cartella / "Scad32.mdb"};
  opzioni.cartellaSchema = cartella / "schema";
  opzioni.stazione = "UFFICIO";
  opzioni.utente = "MARIA";
  opzioni.attesa = std::chrono::milliseconds(2000);
  Schema("tessarc/001_base.sql", kTessarc);
  Schema("scadenzario/001_base.sql", kScadenzario);
  Schema("viste/tessarc/zMovimenti.sql", kVista);
}

void BasiDiProva::TearDown() {
  std::error_code errore;
  fs::remove_all(cartella, errore);
}

void BasiDiProva::Schema(const std::string& nome, const std::string& sql) const {
  const fs::path file = opzioni.cartellaSchema / nome;
  fs::create_directories(file.parent_path());
  std::ofstream(file) << sql;
}

void BasiDiProva::Crea() const {
  const auto creata = BasiDati::Crea(percorsi, opzioni);
  ASSERT_TRUE(creata) << creata.Errore().messaggio;
}

std::unique_ptr<BasiDati> BasiDiProva::Apri() const {
  auto aperte = BasiDati::Apri(percorsi, opzioni);
  if (!aperte) {
    ADD_FAILURE() << aperte.Errore().messaggio;
    return nullptr;
  }
  return std::move(aperte).Valore();
}

std::string BasiDiProva::ErroreApertura() const {
  const auto aperte = BasiDati::Apri(percorsi, opzioni);
  return aperte ? "" : aperte.Errore().messaggio;
}

void BasiDiProva::Causali(BasiDati& basi, int quante) {
  Transazione transazione(basi);
  for (int i = 0; i < quante; ++i) {
    const std::string codice = std::to_string(1000 + i);
    basi.Tessarc().Inserisci("Causali", {{"Cod", codice}, {"Descrizione", "n" + codice}});
  }
  transazione.Conferma();
}

void BasiDiProva::Motore(const fs::path& file, const std::string& sql) {
  sqlite3* connessione = engine::sqlite::ApriConnessione(file, "", true);
  engine::sqlite::EseguiMotore(connessione, sql, file);
  sqlite3_close(connessione);
}

}  // namespace fenalto::prova
