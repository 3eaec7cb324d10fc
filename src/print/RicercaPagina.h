// Search of a text on a page, without case and accents.
#pragma once

#include <QString>
#include <vector>

#include "core/reports/Pagina.h"

namespace fenalto::print {

class Pittore;

/// A run of characters of an element's text.
struct Segno {
  int elemento = 0;
  int da = 0;
  int quanti = 0;
  bool operator==(const Segno&) const = default;
};

/// Text without case and accents, as it is compared in a search.
[[nodiscard]] QString PerConfronto(const QString& testo);
/// Where `cercato` (folded already) stands on the page, in the order of its elements.
[[nodiscard]] std::vector<Segno> Trova(Pittore& pittore, const reports::Pagina& pagina, int totale,
                                       const QString& cercato);

}  // namespace fenalto::print
