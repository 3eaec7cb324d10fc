// The lines of a bank statement, read from a table whose columns are known.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/session/Csv.h"
#include "core/values/Data.h"
#include "core/values/Importo.h"

namespace fenalto::duedates {

/// Characters kept of a line's description.
inline constexpr std::size_t kCaratteriLinea = 200;

struct LineaEstratto {
  std::size_t linea = 0;  ///< of the file, from 1
  Data data;
  Importo importo;  ///< received when positive, paid when negative
  std::string descrizione;
  /// Tells the line from all others of the account, in this file and in one downloaded later that
  /// overlaps it: day, amount, description, and which one of several alike.
  std::string chiave;
};

struct LineaScartata {
  std::size_t linea = 0;
  std::string motivo;
};

/// Columns of the table, by index.
struct ColonneEstratto {
  std::optional<std::size_t> data;
  std::optional<std::size_t> descrizione;
  std::optional<std::size_t> importo;  ///< with its sign
  std::optional<std::size_t> addebito;
  std::optional<std::size_t> accredito;

  /// What is missing to read lines, as the user is told; empty when nothing is.
  [[nodiscard]] std::string Manca() const;
};

struct LineeEstratto {
  std::vector<LineaEstratto> linee;
  std::vector<LineaScartata> scartate;
};

/// Each row becomes a line or is put aside with the reason. Nothing may be missing of the columns.
[[nodiscard]] LineeEstratto LeggiLinee(const TabellaCsv& tabella, const ColonneEstratto& colonne);

}  // namespace fenalto::duedates
