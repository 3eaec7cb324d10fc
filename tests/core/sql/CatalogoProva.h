// A catalogue written as text, and a small database in memory made from it.
//
//   Table: Field type, Field type null, ...      types: testo intero importo reale data sino
//   Chiave Table: Field, Field
//   Vista Name: SELECT ...
//   Specchio Table, Head: Key, Key; Column=_Mirror, ...
//
// A field may be followed by `null`, `contatore` or `nascosto`.
#pragma once

#include <sqlite3.h>

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "core/sql/Catalogo.h"
#include "core/sql/Traduttore.h"
#include "core/store/engine/sqlite/DialettoSqlite.h"

namespace fenalto::prova {

class CatalogoProva : public sql::Catalogo {
 public:
  explicit CatalogoProva(std::string_view testo);

  [[nodiscard]] const sql::TabellaCatalogo* Tabella(std::string_view nome) const override;
  [[nodiscard]] const sql::VistaCatalogo* Vista(std::string_view nome) const override;
  [[nodiscard]] const std::deque<sql::TabellaCatalogo>& Tabelle() const { return tabelle_; }
  [[nodiscard]] const std::deque<sql::VistaCatalogo>& Viste() const { return viste_; }
  /// CREATE TABLE statements of all tables.
  [[nodiscard]] std::string Schema() const;

 private:
  sql::TabellaCatalogo& Cerca(std::string_view nome);
  void LeggiTabella(std::string_view nome, std::string_view campi);
  void LeggiSpecchio(std::string_view tabelle, std::string_view resto);

  std::deque<sql::TabellaCatalogo> tabelle_;
  std::deque<sql::VistaCatalogo> viste_;
};

/// What came of a text: rows, or why not.
struct Risposta {
  std::string errore;         ///< refusal of the dialect or error of the engine; empty when none
  std::size_t posizione = 0;  ///< of a refusal
  sql::Istruzione istruzione;
  std::vector<std::vector<Valore>> righe;
  std::vector<std::int64_t> identita;  ///< rowids, when the statement gives them

  /// Rows as text: columns joined by `|`, Null as `~`, each row closed by a line end.
  [[nodiscard]] std::string Testo() const;
};

/// Database in memory with the tables of a catalogue.
class BancoProva {
 public:
  explicit BancoProva(std::string_view catalogo);
  ~BancoProva();
  BancoProva(const BancoProva&) = delete;
  BancoProva& operator=(const BancoProva&) = delete;

  /// Runs SQL of the engine as it is.
  void Motore(const std::string& sql) const;
  /// Shape, translation, binding and execution of a text of the dialect.
  [[nodiscard]] Risposta Esegui(std::string_view testo) const;
  /// Esegui(testo).Testo(), or "ERRORE: " and the reason.
  [[nodiscard]] std::string Righe(std::string_view testo) const;
  /// How the engine goes about a text (EXPLAIN QUERY PLAN).
  [[nodiscard]] std::string Cammino(std::string_view testo) const;

  [[nodiscard]] const CatalogoProva& Catalogo() const { return catalogo_; }
  [[nodiscard]] sqlite3* Connessione() const { return connessione_; }

 private:
  [[nodiscard]] sqlite3_stmt* Prepara(std::string_view testo, const std::string& prefisso,
                                      Risposta& risposta) const;

  CatalogoProva catalogo_;
  sqlite3* connessione_ = nullptr;
};

}  // namespace fenalto::prova
