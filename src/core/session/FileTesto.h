// Text files of the program folder: read whole as UTF-8, and replaced so that a reader finds the
// old content or the new one, never a piece.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/values/Esito.h"

namespace fenalto {

/// A file longer than this isn't one of ours.
inline constexpr std::uintmax_t kMassimoFileTesto = std::uintmax_t{64} << 20U;

/// What some programs write first in a file of UTF-8.
inline constexpr std::string_view kSegnoUtf8 = "\xEF\xBB\xBF";

/// Content as UTF-8: a file that isn't valid UTF-8 is read as Latin-1. A leading mark stays. A
/// missing file reads as empty. The error says which file can't be read and why.
Esito<std::string> LeggiFileTesto(const std::filesystem::path& percorso);

/// The same bytes as they stand in the file.
Esito<std::string> LeggiFileByte(const std::filesystem::path& percorso);

/// Replaces the file: written beside, brought to the disk, renamed, and the folder brought to the
/// disk. Follows a symbolic link, keeps the permissions; a file without write permission is
/// refused though its folder would let it be replaced. Writers of one file must exclude each other
/// with BloccoFile.
Esito<bool> ScriviFileTesto(const std::filesystem::path& percorso, std::string_view testo);

/// Why the system refused (an errno), in Italian, and what to do where there is something to do.
std::string MotivoDiSistema(int numero);

/// The bytes as UTF-8: as they are when valid, otherwise read as Latin-1.
std::string ComeUtf8(std::string_view byte);

/// Whether bytes that aren't valid UTF-8 are meant to be: a mark stands before them, or they have
/// as many characters of several bytes as bytes that are none. Otherwise they are Latin-1.
bool Utf8Guasto(std::string_view byte) noexcept;

/// An exclusive lock between processes and threads on the side file `.<name>.lck`; the file itself
/// can't carry it, since it is replaced. Released on destruction.
class BloccoFile {
 public:
  /// Waits for other writers at most `attesa`.
  static Esito<BloccoFile> Prendi(const std::filesystem::path& percorso,
                                  std::chrono::milliseconds attesa = std::chrono::seconds(10));
  BloccoFile(BloccoFile&& altro) noexcept;
  BloccoFile& operator=(BloccoFile&&) = delete;
  ~BloccoFile();

 private:
  explicit BloccoFile(int descrittore) : descrittore_(descrittore) {}
  int descrittore_ = -1;
};

}  // namespace fenalto
