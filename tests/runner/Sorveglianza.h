// One process a copione, watched by the one that started it: a program that crashes or hangs fails
// its copione with the line it was on, and leaves the others alone.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>

namespace fenalto::copione {

/// How far a copione is. Lives in memory that both processes share.
struct Segnalibro {
  static constexpr std::size_t kLuogo = 1024;
  static constexpr std::size_t kComando = 32;
  std::atomic<std::int64_t> scadenza{0};  ///< ms of the steady clock; 0 before the first command
  char luogo[kLuogo] = {};
  char comando[kComando] = {};

  /// A command begins; the next one, or the end of the process, must come before `fine`.
  void Comincia(const std::string& dove, const std::string& quale, std::int64_t fine);
};

/// Milliseconds of the steady clock.
std::int64_t AdessoMs();

/// Runs `lavoro` in a process of its own and returns its exit status; one that crashes, or is over
/// its time, is ended, reported with its line, and gives 1.
int LanciaSorvegliato(const std::function<int(Segnalibro&)>& lavoro);

}  // namespace fenalto::copione
