// Files that processes which were killed have left beside the databases.
#pragma once

#include <filesystem>
#include <vector>

namespace fenalto::engine::sqlite {

/// A transaction over two databases is tied together by a journal of its own (`Cont32.mdb-mj...`),
/// which the journals of the databases name. A process killed before they do leaves it for ever: no
/// later opening has a reason to look at it. The same holds for the file that tries the locks of a
/// folder.
class RestiFile {
 public:
  /// Looks beside the databases, the first of which gives the journals their name.
  explicit RestiFile(const std::vector<std::filesystem::path>& archivi);
  [[nodiscard]] bool Nessuno() const { return comuni_.empty() && prove_.empty(); }
  /// Removes them, but those that a journal in the folder names: that one is to be played back some
  /// day, and without its other half it would count as confirmed. To be called by whoever keeps all
  /// others from writing: what isn't named then belongs to no transaction under way.
  void Togli() const;

 private:
  [[nodiscard]] bool Nominato(const std::filesystem::path& comune) const;

  std::vector<std::filesystem::path> comuni_;
  std::vector<std::filesystem::path> giornali_;
  std::vector<std::filesystem::path> prove_;
};

}  // namespace fenalto::engine::sqlite
