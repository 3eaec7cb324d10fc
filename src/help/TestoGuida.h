// The guide's text: what stands in a chapter's file, parted into sections and as plain words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fenalto::help {

/// A heading and what stands below it.
struct Sezione {
  std::string titolo;
  std::string ancora;  ///< how links name it; empty for the chapter's own heading
  std::string testo;   ///< plain: without marks, links and pictures
};

/// A heading as links name it: small letters, blanks as hyphens, marks left out.
std::string Ancora(std::string_view titolo);
/// A line without its marks: of a link and of a picture the words remain, of a row of a table the
/// cells.
std::string SenzaSegni(std::string_view riga);
/// A chapter's sections, the first one with the chapter's title.
std::vector<Sezione> LeggiSezioni(std::string_view markdown);

}  // namespace fenalto::help
