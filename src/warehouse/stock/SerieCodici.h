// A result set in order of product, followed by whoever asks for products in the same order:
// figures of a whole archive without a search, and with a few rows in memory.
#pragma once

#include <string>

#include "core/store/Rs.h"

namespace fenalto::warehouse {

class SerieCodici {
 public:
  /// The first column of `rs` is the product, by which it is ordered.
  explicit SerieCodici(Rs rs) : rs_(std::move(rs)) {}

  /// Whether the set stands on a row of that product, after passing those of products before it.
  /// Throws std::logic_error when asked for a product that comes before the last one.
  bool Al(const std::string& codice);
  void Avanti() { rs_.MoveNext(); }
  [[nodiscard]] const Rs& Riga() const { return rs_; }

 private:
  Rs rs_;
  std::string ultimo_;
};

}  // namespace fenalto::warehouse
