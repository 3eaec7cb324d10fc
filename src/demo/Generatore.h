// Numbers that look like chance and are the same every time.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/values/Importo.h"

namespace fenalto::demo {

/// The same numbers for the same seed, so that the demo of a day is always the same.
class Generatore {
 public:
  explicit Generatore(std::uint64_t seme) : stato_(seme) {}

  /// An amount in euro and cents, from `minimo` to `massimo` euro.
  Importo Euro(std::int64_t minimo, std::int64_t massimo) {
    const auto centesimi = static_cast<std::uint64_t>((massimo - minimo) * 100 + 1);
    return Importo::DaDecimillesimi(
        (minimo * 100 + static_cast<std::int64_t>(Prossimo() % centesimi)) * 100);
  }
  /// A place of a list of `quanti`.
  std::size_t Indice(std::size_t quanti) { return static_cast<std::size_t>(Prossimo() % quanti); }

 private:
  std::uint64_t Prossimo() {
    stato_ = stato_ * 6'364'136'223'846'793'005U + 1'442'695'040'888'963'407U;
    return stato_ >> 33U;
  }
  std::uint64_t stato_;
};

}  // namespace fenalto::demo
