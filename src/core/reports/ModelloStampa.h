// A page model (`.mod`): where the named fields of a report stand on the page.
//
// A text file, UTF-8, edited by hand; the format is told in docs/modelli.md. Its lengths are
// millimetres, here they are hundredths of one.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/reports/Pagina.h"
#include "core/values/Esito.h"

namespace fenalto::reports {

/// A named field: its place, width, alignment, face and number format.
struct CampoModello {
  std::string nome;
  int x = 0;
  int y = 0;  ///< of heading and foot fields: from the page's top; of body fields: offset
              ///< from the line's top
  int larghezza = 0;
  Allineamento allineamento = Allineamento::Sinistra;
  Carattere carattere;
  /// A text that is too wide goes on in the lines below, instead of being cut.
  bool aCapo = false;
  std::string formato;  ///< a number picture ("###.###.###,##"), empty for the value's own text
};

class ModelloStampa {
 public:
  /// An error gives the file, the line and what is wrong (unknown word, number expected, a field
  /// off the page, a name twice, an empty file).
  static Esito<ModelloStampa> Leggi(const std::filesystem::path& file);
  static Esito<ModelloStampa> DaTesto(std::string_view testo, const std::string& nome);

  [[nodiscard]] const FormatoPagina& Formato() const { return formato_; }
  /// Field by name without case; null when the model has none of it (the report's value is then not
  /// printed).
  [[nodiscard]] const CampoModello* Campo(std::string_view nome) const;
  /// Whether some field goes on in the lines below.
  [[nodiscard]] bool VaACapo() const;
  /// Lines, boxes, texts and images that every page has.
  [[nodiscard]] const std::vector<Elemento>& Fissi() const { return fissi_; }
  /// Where the body begins and ends on a page, and the height of a body line.
  [[nodiscard]] int InizioCorpo() const { return inizioCorpo_; }
  [[nodiscard]] int FineCorpo() const { return fineCorpo_; }
  [[nodiscard]] int AltezzaRiga() const { return altezzaRiga_; }
  /// Left and right end of the body fields; the page's margins when there are none.
  [[nodiscard]] std::pair<int, int> LarghezzaCorpo() const;

 private:
  friend class LettoreModello;
  FormatoPagina formato_;
  std::map<std::string, CampoModello> campi_;  // by folded name
  std::vector<Elemento> fissi_;
  int inizioCorpo_ = 0;
  int fineCorpo_ = 0;
  int altezzaRiga_ = 450;
};

}  // namespace fenalto::reports
