#include "admin/companies/DitteDiProva.h"

#include <sqlite3.h>

namespace fenalto::prova {

namespace fs = std::filesystem;

namespace {

constexpr const char* kBasi[] = {"Cont32.mdb", "Scad32.mdb"};

using Righe = std::vector<std::vector<std::string>>;

Righe Leggi(const fs::path& file, const std::string& sql) {
  sqlite3* db = nullptr;
  Righe righe;
  sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
  sqlite3_create_collation(db, "FENALTO", SQLITE_UTF8, nullptr,
                           [](void*, int, const void*, int, const void*) { return 0; });
  const auto raccogli = [](void* dove, int quante, char** valori, char**) {
    std::vector<std::string> riga;
    for (int i = 0; i < quante; ++i) riga.emplace_back(valori[i] == nullptr ? "?" : valori[i]);
    static_cast<Righe*>(dove)->push_back(riga);
    return 0;
  };
  char* errore = nullptr;
  if (sqlite3_exec(db, sql.c_str(), raccogli, &righe, &errore) != SQLITE_OK) {
    ADD_FAILURE() << file << ": " << sql << ": " << errore;
  }
  sqlite3_free(errore);
  sqlite3_close(db);
  return righe;
}

}  // namespace

Schema SchemaDi(const fs::path& cartellaDitta) {
  Schema schema;
  for (const char* base : kBasi) {
    const fs::path file = cartellaDitta / base;
    for (const auto& tabella :
         Leggi(file,
               "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE "
               "'sqlite!_%' ESCAPE '!' AND substr(name,1,1)<>'_'")) {
      for (const auto& colonna : Leggi(file, "PRAGMA table_info(\"" + tabella[0] + "\")")) {
        if (colonna[1].starts_with('_')) continue;
        schema[base][tabella[0]].push_back({colonna[1], colonna[2]});
      }
    }
  }
  return schema;
}

Contenuti ContenutiDi(const fs::path& cartellaDitta) {
  Contenuti contenuti;
  for (const auto& [base, tabelle] : SchemaDi(cartellaDitta)) {
    for (const auto& [tabella, colonne] : tabelle) {
      auto& righe = contenuti[base + "/" + tabella];
      for (const auto& riga : Leggi(cartellaDitta / base, "SELECT * FROM \"" + tabella + "\"")) {
        std::string testo;
        for (const auto& valore : riga) testo += valore + "|";
        righe.insert(testo);
      }
    }
  }
  return contenuti;
}

std::set<std::string> NomiSotto(const fs::path& cartella) {
  std::set<std::string> nomi;
  for (const auto& voce : fs::recursive_directory_iterator(cartella)) {
    const fs::path nome = voce.path().lexically_relative(cartella);
    if (nome.extension() != ".lck" && nome.extension() != ".blocchi") nomi.insert(nome.string());
  }
  return nomi;
}

std::unique_ptr<CartellaProva> DitteTest::modello_;

void DitteTest::SetUpTestSuite() {
  modello_ = std::make_unique<CartellaProva>();
  const OpzioniAmbiente opzioni = OpzioniProva(modello_->Percorso());
  CreaDittaProva(opzioni, "Rossi", {{2001, false, true}, {2026, true, false}}, true);
  DialoghiFinti dialoghi;
  OrologioFinto orologio;
  CasoFinto caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  if (!ambiente.ApriDitta("Rossi")) throw std::runtime_error("Rossi");
  const std::map<std::string, std::string> chiavi = {{"Cont32.mdb", "tessarc"},
                                                     {"Scad32.mdb", "scadenzario"}};
  for (const auto& [base, tabelle] : SchemaDi(modello_->Percorso() / "Rossi")) {
    for (const auto& [tabella, colonne] : tabelle) {
      if (tabella == "Anni" || tabella == "Ut") continue;
      std::vector<Coppia> campi;
      for (const auto& colonna : colonne) {
        // A party's class is 'C' in its own table; elsewhere one row is enough to see a reference.
        const bool classe = UgualeTesto(colonna.nome.substr(0, 3), "CFP");
        const Valore valore = classe                             ? Valore("C")
                              : colonna.tipo.starts_with("TEXT") ? Valore("XZ")
                                                                 : Valore(9);
        campi.emplace_back(colonna.nome, valore);
      }
      ambiente.ArchivioDi(chiavi.at(base)).Inserisci(tabella, campi);
    }
  }
  for (const char* classe : {"F", "P"}) {
    ambiente.ArchivioDi("tessarc").Inserisci("ContiClientiFornitori",
                                             {{"Cod", "XZ"}, {"CFP", classe}});
  }
  ScriviFile(modello_->Percorso() / "Rossi/Documenti/contratto.txt", "carta");
}

DitteTest::DitteTest() {
  fs::copy(modello_->Percorso(), cartella_.Percorso(), fs::copy_options::recursive);
}

OpzioniAmbiente DitteTest::Opzioni(const std::string& stazione) const {
  OpzioniAmbiente opzioni = OpzioniProva(cartella_.Percorso());
  opzioni.stazione = stazione;
  return opzioni;
}

}  // namespace fenalto::prova
