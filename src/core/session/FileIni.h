// A text file of sections and `key=value` lines, kept as it was found: order, comments, spelling of
// keys and unknown lines. Sections and keys are compared without case; a blank before `=` belongs
// to the key.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/Esito.h"

namespace fenalto {

class FileIni {
 public:
  /// Reads `percorso` (LF or CR LF; UTF-8, with or without mark, or Latin-1, told apart by
  /// validity). A missing file reads as empty. An error says what can't be read.
  static Esito<FileIni> Leggi(const std::filesystem::path& percorso);
  static FileIni DaTesto(std::string_view testo);

  /// The first occurrence; empty text when missing.
  [[nodiscard]] std::string Valore(std::string_view sezione, std::string_view chiave) const;
  [[nodiscard]] bool HaSezione(std::string_view sezione) const;
  /// A key with its section, as written; valid while the file isn't changed.
  struct Voce {
    std::string_view sezione;
    std::string_view chiave;
    std::string_view valore;
  };
  /// Every key that `Valore` can answer, in the order of the file.
  [[nodiscard]] std::vector<Voce> Voci() const;
  /// Writes the key, making the section when needed.
  void Imposta(std::string_view sezione, std::string_view chiave, std::string_view valore);
  [[nodiscard]] const std::string& Testo() const { return testo_; }

  /// Reads, changes one key and writes atomically (written beside, synced, renamed), under a lock
  /// that other stations' writers share, so that no key is lost.
  static Esito<bool> Scrivi(const std::filesystem::path& percorso, std::string_view sezione,
                            std::string_view chiave, std::string_view valore);

 private:
  std::string testo_;
};

}  // namespace fenalto
