// A file layer of the engine over the system's, whose disk fills up, or whose process dies, when a
// test says so.
#pragma once

#include <cstdint>

namespace fenalto::prova {

class DiscoFinto {
 public:
  /// Registers the layer, once a process.
  static const char* Nome();
  /// Bytes that may still be written before the disk is full; negative for no limit.
  static void Spazio(std::int64_t byte);
  /// The process is killed at the `n`-th write from now, which isn't done; 0 for never.
  static void MuoriAllaScrittura(int n);
};

}  // namespace fenalto::prova
