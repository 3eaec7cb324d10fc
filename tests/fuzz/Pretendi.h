// What every fuzzer shares: a demand that ends it, and its bytes as text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

inline void Pretendi(bool vero) {
  if (!vero) std::abort();
}

/// libFuzzer speaks in bytes, the program in characters.
inline std::string_view Testo(const std::uint8_t* dati, std::size_t quanti) {
  return {reinterpret_cast<const char*>(dati), quanti};
}
