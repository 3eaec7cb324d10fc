// What the store asks of an engine while a company is open: statements, transactions, the tables it
// finds, the step a schema is at.
//
// The databases of a company hang on one connection and share its transactions, whatever they are
// to the engine: files of one connection, schemas of one server. Here each goes by its name.
// Everything that fails throws ErroreArchivio, worded for the user and naming the place of the
// database; Causa::Occupato when another station held the data longer than one may wait.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/sql/Catalogo.h"
#include "core/store/engine/RigheLette.h"
#include "core/values/Valore.h"

namespace fenalto::engine {

/// A database: how the program calls it, and where it is.
struct Base {
  std::string nome;
  std::filesystem::path luogo;
};

/// A table as the engine has it.
struct Tabella {
  sql::TabellaCatalogo vista;
  std::string base;
  /// DEFAULT of each column as the engine writes it, in the order of vista.colonne; empty when it
  /// has none.
  std::vector<std::string> predefiniti;
};

/// What a database says of itself.
struct StatoBase {
  bool propria = false;  ///< made by this program
  bool solaLettura = false;
  int passo = 0;  ///< of its schema
};

/// A prepared statement. It may outlive its connection, and then does nothing more.
class Istruzione {
 public:
  Istruzione() = default;
  virtual ~Istruzione() = default;
  Istruzione(const Istruzione&) = delete;
  Istruzione& operator=(const Istruzione&) = delete;

  /// Sets parameter `indice`, from 1. The two commonest kinds need no Valore between.
  virtual void Lega(int indice, const Valore& valore) = 0;
  virtual void LegaTesto(int indice, std::string_view testo) = 0;
  virtual void LegaIntero(int indice, std::int64_t intero) = 0;

  /// To the first row, or to the next; whether there is one. A statement without rows is done by
  /// it. After an error it stands before the first row again.
  virtual bool Avanza() = 0;
  /// Takes the row it stands on and those that follow, `quante` at most; whether it stands on one
  /// more. One call for many rows, so that reading costs what it costs the engine.
  virtual bool Leggi(RigheLette& righe, std::size_t quante) = 0;
  /// A column (from 0) of the row it stands on.
  [[nodiscard]] virtual Valore Campo(int colonna, Tipo tipo) const = 0;
  /// Rows that the statement just run has changed; identity of the row that it has added.
  [[nodiscard]] virtual std::int64_t Cambiate() const = 0;
  [[nodiscard]] virtual std::int64_t Aggiunta() const = 0;
  /// Back before the first row; the parameters stay.
  virtual void Azzera() noexcept = 0;
  /// A long reading goes on: what the engine keeps of the rows passed won't be asked for again.
  virtual void LasciaMemoria() noexcept = 0;
};

class Connessione {
 public:
  Connessione() = default;
  virtual ~Connessione() = default;
  Connessione(const Connessione&) = delete;
  Connessione& operator=(const Connessione&) = delete;

  /// A statement that is run often, on tables of any base; its errors name `base`.
  virtual std::unique_ptr<Istruzione> Prepara(const std::string& base, std::string_view sql) = 0;
  /// The tables, with the names under which a statement finds them; none that begins with `_`.
  virtual std::vector<Tabella> Tabelle(const std::string& base) = 0;
  /// Whether there is a table, and its qualified name; whatever it begins with.
  virtual bool HaTabella(const std::string& base, std::string_view tabella) = 0;
  virtual std::string NomeTabella(const std::string& base, std::string_view tabella) = 0;

  virtual StatoBase Stato(const std::string& base) = 0;
  /// Runs a step of the schema; unqualified names in it are those of the base opened first.
  virtual void EseguiPasso(const std::string& base, const std::string& testo) = 0;
  /// Writes down that the base is this program's and its schema at `passo`.
  virtual void SegnaPasso(const std::string& base, int passo) = 0;

  /// Begins a transaction. `riserva`: over everything, so that nothing later in it waits for
  /// another station.
  virtual void Inizia(bool riserva) = 0;
  /// Does the same for one base, as the first statement of a transaction that writes that one
  /// alone.
  virtual void Riserva(const std::string& base) = 0;
  virtual void Conferma() = 0;
  /// Undoes what there is to undo.
  virtual void Annulla() noexcept = 0;
  /// Takes away what processes that were killed have left beside the bases and nothing needs any
  /// more. Does nothing while another station writes; never fails.
  virtual void TogliResti() noexcept = 0;
  /// False also when the engine has undone a transaction by itself, after an error.
  [[nodiscard]] virtual bool InTransazione() const noexcept = 0;
};

}  // namespace fenalto::engine
