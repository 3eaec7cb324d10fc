// A condition of the dialect evaluated on rows in memory: what FindFirst searches with.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/sql/Traduttore.h"

namespace fenalto::sql {

class Predicato {
 public:
  /// Parses `criterio` against the columns of a result set (names without case).
  static Esito<Predicato, ErroreSql> Leggi(std::string_view criterio,
                                           std::span<const ColonnaUscita> colonne);
  Predicato(Predicato&&) noexcept;
  Predicato& operator=(Predicato&&) noexcept;
  ~Predicato();

  /// When the whole condition is a conjunction of `column = literal`: column indexes and values, so
  /// that a result set can be searched by hash. Nothing otherwise.
  [[nodiscard]] const std::optional<std::vector<std::pair<std::size_t, Valore>>>& Uguaglianze()
      const;
  /// Whether the row (one value a column) meets the condition; Null is not met.
  [[nodiscard]] bool Vale(std::span<const Valore> riga) const;

 private:
  struct Nodo;
  using Coppie = std::vector<std::pair<std::size_t, Valore>>;
  Predicato(std::unique_ptr<Nodo> radice, std::optional<Coppie> uguaglianze);
  std::unique_ptr<Nodo> radice_;
  std::optional<std::vector<std::pair<std::size_t, Valore>>> uguaglianze_;
};

}  // namespace fenalto::sql
