// The bank's file while its batch isn't in the books yet.
#pragma once

#include <filesystem>

#include "duedates/riba/FileRiba.h"

namespace fenalto::duedates {

/// The name beside (`12.rib.prima`) that a file which is there already is kept under; empty when
/// there is none. One of another bank, or of a confirmation that was broken off, is never lost.
std::filesystem::path NomeConservato(const std::filesystem::path& percorso);

/// Writes the file, and takes it away again unless the batch was confirmed (Tieni): a file that was
/// there before then gets its name back.
class FileDistinta {
 public:
  explicit FileDistinta(std::filesystem::path percorso);
  ~FileDistinta();
  FileDistinta(const FileDistinta&) = delete;
  FileDistinta& operator=(const FileDistinta&) = delete;

  /// As ScriviFileRiba; the folder is on the disk too when it returns.
  Esito<bool> Scrivi(const FileRiba& file);
  /// The batch stands: so does the file, with the one before beside it.
  void Tieni();
  /// Where the file of that name that was there before is kept; empty when there was none.
  [[nodiscard]] const std::filesystem::path& Precedente() const { return precedente_; }

 private:
  Esito<bool> ConservaPrecedente();
  std::filesystem::path percorso_;
  std::filesystem::path precedente_;  ///< the file kept beside; empty when there was none
  bool daTogliere_ = false;
};

}  // namespace fenalto::duedates
