// The catalogue of one open database: its own tables as the engine tells them, tables linked from
// others, stored queries.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/sql/Catalogo.h"

struct sqlite3;

namespace fenalto {

/// A table with what only the store needs to know of it.
struct TabellaArchivio {
  sql::TabellaCatalogo vista;
  /// Schema and name for the engine, unquoted.
  std::string schema;
  /// DEFAULT of each column as SQL, in the order of vista.colonne; empty when it has none.
  std::vector<std::string> predefiniti;
  bool collegata = false;
};

/// Stored queries by folded name.
using VisteArchivio = std::unordered_map<std::string, sql::VistaCatalogo>;

/// Reads the stored queries of a folder, one file each; lines that begin with `--` are left out.
VisteArchivio LeggiViste(const std::filesystem::path& cartella);

/// A name quoted for the engine.
std::string Virgolettato(std::string_view nome);
/// The type a column is declared with, collation included.
std::string TipoDichiarato(Tipo tipo);

class CatalogoArchivio final : public sql::Catalogo {
 public:
  explicit CatalogoArchivio(std::shared_ptr<const VisteArchivio> viste)
      : viste_(std::move(viste)) {}

  /// Reads the tables of `schema`; throws ErroreArchivio, naming `file`.
  void Leggi(sqlite3* connessione, const std::string& schema, const std::filesystem::path& file);
  /// Makes a table of another database known here under its name.
  void Collega(const TabellaArchivio& tabella);

  [[nodiscard]] const sql::TabellaCatalogo* Tabella(std::string_view nome) const override;
  [[nodiscard]] const sql::VistaCatalogo* Vista(std::string_view nome) const override;
  [[nodiscard]] const TabellaArchivio* Completa(std::string_view nome) const;
  /// Calls `prova` with the engine's name of every table that keeps a mirror of `altra`, until it
  /// says true.
  bool OgniSpecchioDi(std::string_view altra,
                      const std::function<bool(const std::string&)>& prova) const;

 private:
  void LeggiColonne(sqlite3* connessione, const std::string& schema,
                    const std::filesystem::path& file);
  void LeggiChiavi(sqlite3* connessione, const std::string& schema,
                   const std::filesystem::path& file);
  void LeggiSpecchi(sqlite3* connessione, const std::string& schema,
                    const std::filesystem::path& file);

  std::unordered_map<std::string, TabellaArchivio> tabelle_;
  std::shared_ptr<const VisteArchivio> viste_;
};

}  // namespace fenalto
