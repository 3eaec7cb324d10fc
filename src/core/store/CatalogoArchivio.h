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
#include "core/store/engine/Connessione.h"

namespace fenalto {

/// A table of one database as another may know it too.
struct TabellaArchivio : engine::Tabella {
  bool collegata = false;
};

/// Stored queries by folded name.
using VisteArchivio = std::unordered_map<std::string, sql::VistaCatalogo>;

/// Reads the stored queries of a folder, one file each; lines that begin with `--` are left out.
VisteArchivio LeggiViste(const std::filesystem::path& cartella);

class CatalogoArchivio final : public sql::Catalogo {
 public:
  explicit CatalogoArchivio(std::shared_ptr<const VisteArchivio> viste)
      : viste_(std::move(viste)) {}

  /// Reads the tables of a base; throws ErroreArchivio.
  void Leggi(engine::Connessione& connessione, const std::string& base);
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
  void LeggiSpecchi(engine::Connessione& connessione, const std::string& base);

  std::unordered_map<std::string, TabellaArchivio> tabelle_;
  std::shared_ptr<const VisteArchivio> viste_;
};

}  // namespace fenalto
