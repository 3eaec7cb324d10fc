// The file of a draft: names and what they hold, the last one written counting.
//
// Lines are added, never changed, so a program that is killed leaves whole ones and at most a
// piece; each bears a check, so a damaged one is left out. When most of them are outdated the file
// is made anew. It is never brought to the disk: it outlives the program, which is what it is for,
// and costs nothing while one types.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/FileTesto.h"

namespace fenalto::records {

/// What a name holds: some texts.
using VoceBozza = std::vector<std::string>;
/// Names, as a file of a draft has them.
using VociBozza = std::map<std::string, VoceBozza, std::less<>>;

/// What is whole in the text of such a file.
VociBozza LeggiBozza(std::string_view testo);

class FileBozza {
 public:
  /// Files are called `nome`-1 and so on, in `cartella`, which is made with the first of them.
  FileBozza(std::filesystem::path cartella, std::string nome);
  FileBozza(const FileBozza&) = delete;
  FileBozza& operator=(const FileBozza&) = delete;
  /// What is written stays.
  ~FileBozza();

  /// A name holds that from the next Scarica on.
  void Metti(const std::string& nome, const VoceBozza& voce);
  /// Something was put under that name.
  [[nodiscard]] bool Ha(std::string_view nome) const { return righe_.contains(nome); }
  /// Writes what was put since the last time; the file is begun with the first. What can't be
  /// written is left out without a word: nobody is kept from working.
  void Scarica() noexcept;
  /// The file goes.
  void Butta() noexcept;
  [[nodiscard]] bool Scritto() const { return descrittore_ >= 0; }

  /// One that a program has left and that nobody else is looking at.
  struct Lasciato {
    std::filesystem::path file;
    BloccoFile blocco;
    VociBozza voci;
  };
  [[nodiscard]] std::vector<Lasciato> Lasciati() const;

 private:
  bool Apri();
  void Rifai();
  bool Scrivi(std::string_view testo) const;
  [[nodiscard]] std::filesystem::path File(int numero) const;

  std::filesystem::path cartella_;
  std::string nome_;
  std::filesystem::path file_;
  std::optional<BloccoFile> blocco_;
  int descrittore_ = -1;
  bool spento_ = false;                                    ///< it couldn't be written
  std::map<std::string, std::string, std::less<>> righe_;  ///< by name, as they stand in the file
  std::string inAttesa_;
  std::size_t scritti_ = 0;
  std::size_t alRifacimento_ = 0;
};

}  // namespace fenalto::records
