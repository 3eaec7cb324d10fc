// A file layer of the engine whose disk is in memory and whose power can be cut.
//
// It knows what a disk may do: what was synchronised stays; of the rest each write, truncation,
// creation or deletion may have reached the disk, or not, or in part, in any order. Restarting
// chooses among these by a seed. One thread only.
#pragma once

#include <cstdint>
#include <filesystem>
#include <random>
#include <string>

namespace fenalto::prova {

/// A disk that says it has synchronised when it hasn't: what a test of lost work must notice.
enum class Bugia { Nessuna, Tutto, Giornali };

class FileDiProva {
 public:
  /// The layer's name for OpzioniApertura::vfs; registers it the first time.
  static const char* Nome();

  /// An empty disk, switched on and honest.
  static void Azzera();
  /// Puts a file on the disk, safely.
  static void Metti(const std::filesystem::path& file, std::string contenuto);
  static void Menti(Bugia bugia);

  /// The power goes at the `n`-th change of the disk from now (1 is the next one, synchronisations
  /// count); that change is under way when it goes. From then on everything fails. 0 takes it off.
  static void TagliaAlla(std::int64_t n);
  [[nodiscard]] static bool Spento();
  /// Changes of the disk since Azzera.
  [[nodiscard]] static std::int64_t Cambiamenti();
  /// Switches on again with what may have survived; files still open are lost to their owners.
  static void Riaccendi(std::mt19937& caso);
};

}  // namespace fenalto::prova
