// The user's guide: its chapters in order, and the search over all of them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "help/TestoGuida.h"

namespace fenalto::help {

struct Capitolo {
  std::string file;    ///< "04-primanota.md"
  std::string titolo;  ///< of its first heading
  std::vector<Sezione> sezioni;
};

/// Where the reader is taken.
struct Posto {
  std::string file;
  std::string ancora;  ///< empty for the chapter's beginning
  bool operator==(const Posto&) const = default;
};

/// A section that holds what was looked for.
struct Trovato {
  Posto posto;
  std::string capitolo;
  std::string sezione;  ///< empty for what stands before a chapter's first heading
  std::string brano;    ///< the words around the first place
};

class Guida {
 public:
  /// Chapters of a folder (files whose name begins with a digit), in order of name; a folder that
  /// isn't there has none.
  static Guida Leggi(const std::filesystem::path& cartella);

  [[nodiscard]] const std::vector<Capitolo>& Capitoli() const { return capitoli_; }
  /// Null when there is none of that name.
  [[nodiscard]] const Capitolo* Di(std::string_view file) const;
  /// Sections in which every word stands, without regard to case and accents: those that have a
  /// word in their title first, then in order.
  [[nodiscard]] std::vector<Trovato> Cerca(std::string_view testo) const;
  /// The first section of a chapter that names a field, by its caption; nothing when none does.
  [[nodiscard]] const Sezione* DelCampo(std::string_view file, std::string_view didascalia) const;

 private:
  std::vector<Capitolo> capitoli_;
};

/// A field's caption as the guide writes it: without its colon and Alt letter.
std::string DidascaliaPulita(std::string_view didascalia);

}  // namespace fenalto::help
