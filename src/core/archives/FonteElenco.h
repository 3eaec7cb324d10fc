// A list of records that is read in pages, whatever their number: what stands behind the lists from
// which a record is chosen. The order is the source's own.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "core/values/Valore.h"

namespace fenalto::archives {

/// What narrows a list.
struct FiltroElenco {
  /// What is typed above the list, without the blanks around it; the source says what it looks for.
  std::string testo = {};
  /// One text a column, held anywhere in what the column shows; empty for all.
  std::vector<std::string> colonne = {};
  [[nodiscard]] bool Vuoto() const {
    return testo.empty() &&
           std::all_of(colonne.begin(), colonne.end(), [](const auto& c) { return c.empty(); });
  }
};

class FonteElenco {
 public:
  using Righe = std::vector<std::vector<Valore>>;
  static constexpr int kPagina = 200;

  virtual ~FonteElenco() = default;
  /// Begins again from the first row.
  virtual void Comincia(const FiltroElenco& filtro) = 0;
  /// The rows that follow those read so far, a page at most; each has one value a column.
  virtual Righe Avanti() = 0;
  /// The last row was read.
  [[nodiscard]] virtual bool Finita() const = 0;
  /// No index answers: each `Avanti` goes through a stretch of records, and may find none of them.
  [[nodiscard]] virtual bool ATratti() const { return false; }
  /// Number that a reading by stretches has come down to.
  [[nodiscard]] virtual std::int64_t Punto() const { return 0; }
};

}  // namespace fenalto::archives
