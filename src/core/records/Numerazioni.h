// The numbering locks of a confirmation.
//
// Two confirmations that took the same two locks in different orders would wait for each other
// until one gives up. So there is one order for the whole program, kOrdineNumerazioni, and a
// confirmation asks for all its locks at once. A new numbering is added where it is taken: after
// those it may follow, before those it may be followed by.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::records {

/// Issued documents first: their confirmation goes on to write registrations.
inline constexpr std::array<std::string_view, 3> kOrdineNumerazioni = {"FATTURECLI", "ARTICOLI",
                                                                       "CESPITI"};

/// Held until destroyed.
class Numerazioni {
 public:
  /// Waits for each as Ambiente::BloccaTabella does, and tells who holds the one it didn't get;
  /// then none is held. Debug builds throw std::logic_error on a table that isn't in
  /// kOrdineNumerazioni, or in another order.
  Numerazioni(Ambiente& ambiente, const std::vector<std::string_view>& tabelle);
  /// All are held; true of none.
  [[nodiscard]] bool Tenute() const { return tenute_; }

 private:
  std::vector<Blocco> blocchi_;
  bool tenute_ = true;
};

}  // namespace fenalto::records
