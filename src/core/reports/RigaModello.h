// One line of a page model: its words, and the attributes of an element.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/reports/Pagina.h"
#include "core/values/Esito.h"

namespace fenalto::reports {

struct ParolaModello {
  std::string testo;
  bool traVirgolette = false;
};

/// Words between blanks, up to a `#` that begins one; a text in double quotes is one word, and a
/// quote in it is doubled. Errors are what is wrong, without file and line.
Esito<std::vector<ParolaModello>> ParoleModello(std::string_view riga);

/// Hundredths out of "12", "12.5" or "12,25" (at most two decimals and 9999); the error says so.
Esito<int> MisuraModello(const ParolaModello& parola);

/// What follows the name of an element, in any order.
struct AttributiModello {
  std::map<std::string, int, std::less<>> misure;  ///< by name, hundredths; `grigio` as it is
  std::optional<Allineamento> allineamento;
  Carattere carattere;
  std::optional<std::string> formato;
  bool aCapo = false;

  [[nodiscard]] bool Ha(std::string_view nome) const { return misure.contains(nome); }
  [[nodiscard]] int Misura(std::string_view nome, int altrimenti = 0) const;
};

/// Reads the attributes from the n-th word on; `ammessi` are the names that the element takes,
/// between blanks. The face begins as `carattere`.
Esito<AttributiModello> LeggiAttributi(const std::vector<ParolaModello>& parole, std::size_t n,
                                       std::string_view ammessi, const Carattere& carattere);

}  // namespace fenalto::reports
