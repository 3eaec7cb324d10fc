// The bank's file while its batch isn't in the books yet.
#pragma once

#include <filesystem>

#include "duedates/riba/FileRiba.h"

namespace fenalto {

/// Writes the file, and takes it away again unless the batch was confirmed (Tieni). A file of that
/// name is kept beside meanwhile (`12.rib.prima`) and gets its name back.
class FileDistinta {
 public:
  explicit FileDistinta(std::filesystem::path percorso);
  ~FileDistinta();
  FileDistinta(const FileDistinta&) = delete;
  FileDistinta& operator=(const FileDistinta&) = delete;

  /// As ScriviFileRiba; the folder is on the disk too when it returns.
  Esito<bool> Scrivi(const FileRiba& file);
  /// The batch stands: so does the file, and the one before goes.
  void Tieni();

 private:
  Esito<bool> ConservaPrecedente();
  std::filesystem::path percorso_;
  std::filesystem::path precedente_;  ///< the file kept beside; empty when there was none
  bool daTogliere_ = false;
};

}  // namespace fenalto
