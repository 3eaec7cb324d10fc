// A file layer of the engine over the system's, whose disk fills up when a test says so.
#pragma once

#include <cstdint>

namespace fenalto::prova {

class DiscoFinto {
 public:
  /// Registers the layer, once a process.
  static const char* Nome();
  /// Bytes that may still be written before the disk is full; negative for no limit.
  static void Spazio(std::int64_t byte);
};

}  // namespace fenalto::prova
