// Searches by equality on rows in memory: one hash a set of columns, made when first asked for.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "core/store/engine/RigheLette.h"
#include "core/values/Valore.h"

namespace fenalto {

class IndiceRicerca {
 public:
  using Uguaglianze = std::vector<std::pair<std::size_t, Valore>>;
  /// First row whose columns equal the values; nothing when there is none.
  std::optional<std::size_t> Prima(const engine::RigheLette& righe, const Uguaglianze& cercate);
  /// Forgets all hashes: the rows have changed.
  void Svuota() { tavole_.clear(); }

 private:
  struct Tavola {
    std::vector<std::size_t> colonne;
    /// Row + 1 of the first of each chain, 0 for none; the size is a power of two.
    std::vector<std::uint32_t> teste;
    std::vector<std::uint32_t> seguenti;
  };
  static Tavola Costruisci(const engine::RigheLette& righe, std::vector<std::size_t> colonne);
  std::vector<Tavola> tavole_;
};

}  // namespace fenalto
