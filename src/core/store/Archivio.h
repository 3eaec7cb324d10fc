// One open database: the only way to its data.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/sql/Catalogo.h"
#include "core/store/ErroreArchivio.h"
#include "core/store/Rs.h"

namespace fenalto {

class BasiDati;

/// A field and its value.
using Coppia = std::pair<std::string, Valore>;

class Archivio {
 public:
  ~Archivio();
  Archivio(const Archivio&) = delete;
  Archivio& operator=(const Archivio&) = delete;

  /// Result set of SQL text or of a table's or stored query's name. Throws ErroreArchivio.
  Rs Recordset(std::string_view sql);
  /// Stored query by name.
  Rs Vista(std::string_view nome);
  /// Runs an action statement; returns the rows changed. Throws ErroreArchivio.
  std::int64_t Esegui(std::string_view sql);
  /// First field of the first row of a query; Null when it has no row.
  Valore Singolo(std::string_view sql);

  /// Adds a row: fields not named take their empty value, counters fill themselves. Returns the
  /// counter's value (the row's identity when the table has none).
  std::int64_t Inserisci(std::string_view tabella, const std::vector<Coppia>& campi);

  /// Links a table of the open database at `percorso` (or of key "tessarc" / "scadenzario") into
  /// this one, so that statements and stored queries here can join it.
  void CollegaTabella(const std::filesystem::path& percorso, std::string_view tabella);
  [[nodiscard]] const std::filesystem::path& Percorso() const;
  [[nodiscard]] const sql::Catalogo& Catalogo() const;
  /// Releases statements.
  void Chiudi();

 private:
  friend class BasiDati;
  struct Interno;
  explicit Archivio(std::unique_ptr<Interno> interno);
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto
