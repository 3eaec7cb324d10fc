// A file written beside its place and renamed into it when it is whole, for outputs too long to be
// held in memory.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/values/Esito.h"

namespace fenalto::reports {

/// What isn't closed leaves nothing behind. The first failure is kept and told by Chiudi.
class FileAccanto {
 public:
  explicit FileAccanto(std::filesystem::path file);
  ~FileAccanto();
  FileAccanto(const FileAccanto&) = delete;
  FileAccanto& operator=(const FileAccanto&) = delete;

  /// Makes the file beside; false when it can't. Scrivi does so by itself.
  bool Apri();
  /// False when this or an earlier step failed.
  bool Scrivi(std::string_view testo);
  /// Path of the file beside, for libraries that write by name; after Apri.
  [[nodiscard]] const std::filesystem::path& Percorso() const { return accanto_; }
  /// Brings the file to the disk and gives it its name, with the permissions of the file that it
  /// replaces.
  Esito<bool> Chiudi();
  /// Gives up; nothing is left.
  void Annulla();

 private:
  bool Fallito(int numero);
  bool Svuota();
  std::filesystem::path file_;
  std::filesystem::path accanto_;
  std::string attesa_;  ///< not yet written
  int descrittore_ = -1;
  int errore_ = 0;
};

}  // namespace fenalto::reports
