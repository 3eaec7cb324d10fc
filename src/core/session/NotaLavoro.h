// The note of a work on companies' files: what it is and between which names, so that it can be
// gone on with after a crash. Who works holds a lock on it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/FileIni.h"
#include "core/session/FileTesto.h"
#include "core/values/Esito.h"

namespace fenalto {

class NotaLavoro {
 public:
  using Voci = std::vector<std::pair<std::string, std::string>>;

  /// Begins a work on that company, in no case the second at one time.
  static Esito<NotaLavoro> Inizia(const std::filesystem::path& cartella, const std::string& ditta,
                                  const Voci& voci);
  /// The notes that nobody is working on.
  static std::vector<NotaLavoro> Lasciate(const std::filesystem::path& cartella);
  NotaLavoro(NotaLavoro&& altra) noexcept = default;
  NotaLavoro& operator=(NotaLavoro&&) = delete;
  ~NotaLavoro() = default;

  [[nodiscard]] std::string Voce(std::string_view chiave) const;
  /// The work is finished or taken back: the note goes. Without it, it stays for the next start.
  void Chiudi();

 private:
  NotaLavoro(std::filesystem::path file, FileIni contenuto, BloccoFile blocco);
  std::filesystem::path file_;
  FileIni contenuto_;
  std::optional<BloccoFile> blocco_;
};

}  // namespace fenalto
