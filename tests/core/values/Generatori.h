// What properties draw their values from, and how failures show them.
#pragma once

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cstdint>
#include <limits>
#include <ostream>

#include "core/values/Data.h"
#include "core/values/Importo.h"

namespace fenalto {

inline void PrintTo(Importo importo, std::ostream* uscita) {
  *uscita << importo.Testo();
}
inline void PrintTo(Data data, std::ostream* uscita) {
  *uscita << "data " << data.Giorni();
}
inline void showValue(Importo importo, std::ostream& uscita) {
  uscita << importo.Testo();
}
inline void showValue(Data data, std::ostream& uscita) {
  uscita << "data " << data.Giorni();
}

}  // namespace fenalto

namespace rc {

/// Amounts of every size: fractions of a cent, cents, whole units, and the ends of the range.
template <>
struct Arbitrary<fenalto::Importo> {
  static Gen<fenalto::Importo> arbitrary() {
    constexpr auto kMassimo = std::numeric_limits<std::int64_t>::max();
    constexpr auto kMinimo = std::numeric_limits<std::int64_t>::min();
    const auto volte = [](std::int64_t scala) {
      return gen::map(gen::inRange<std::int64_t>(-2'000'000, 2'000'000),
                      [scala](std::int64_t n) { return n * scala; });
    };
    return gen::map(gen::weightedOneOf<std::int64_t>(
                        {{4, volte(1)},
                         {3, volte(50)},  // half cents, where roundings meet
                         {2, volte(100)},
                         {1, volte(10'000)},
                         {1, gen::inRange<std::int64_t>(-1'000'000'000'000, 1'000'000'000'000)},
                         {1, gen::inRange<std::int64_t>(kMinimo, kMassimo)},
                         {1, gen::map(gen::inRange<std::int64_t>(0, 20'000),
                                      [](std::int64_t n) {
                                        return std::numeric_limits<std::int64_t>::max() - n;
                                      })},
                         {1, gen::map(gen::inRange<std::int64_t>(0, 20'000),
                                      [](std::int64_t n) {
                                        return std::numeric_limits<std::int64_t>::min() + n;
                                      })}}),
                    [](std::int64_t n) { return fenalto::Importo::DaDecimillesimi(n); });
  }
};

template <>
struct Arbitrary<fenalto::Data> {
  static Gen<fenalto::Data> arbitrary() {
    return gen::map(gen::inRange<std::int32_t>(-693'593, 2'958'466),
                    [](std::int32_t n) { return fenalto::Data::DaGiorni(n); });
  }
};

}  // namespace rc
