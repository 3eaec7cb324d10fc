// Rows of a document pasted from a spreadsheet: code, quantity, price, discount, parted by tabs or
// semicolons, with numbers as people write them here.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/values/Esito.h"
#include "documents/entry/RigaDocumento.h"

namespace fenalto::documents {

/// What a code or barcode stands for.
struct ProdottoIncollato {
  std::string codice;
  std::string descrizione;  ///< first line of it
  bool fuoriUso = false;
};

struct RigaIncollata {
  std::size_t linea = 0;  ///< of the text, from 1
  ValoriRiga valori;      ///< as far as it could be read
  std::string descrizione;
  bool fuoriUso = false;
  std::string errore;  ///< what is wrong and where; empty when the row can go in
};

/// Most rows that can be pasted at once.
inline constexpr std::size_t kIncollateMassime = 5'000;

using CercaProdotto = std::function<std::optional<ProdottoIncollato>(const std::string& letto)>;

/// Reads a text of rows; a first line of headings and lines without anything in them are left out,
/// a row without quantity is of one piece, several discounts are parted by "+". The error is of the
/// text as a whole: nothing in it, too many lines, a quote that isn't closed.
Esito<std::vector<RigaIncollata>> LeggiIncollate(std::string_view testo,
                                                 const CercaProdotto& cerca);
/// The same among the products of the company, each looked up once.
Esito<std::vector<RigaIncollata>> LeggiIncollate(Ambiente& ambiente, std::string_view testo);

/// Those that can go in, in their order.
std::vector<ValoriRiga> Accettate(const std::vector<RigaIncollata>& righe);

}  // namespace fenalto::documents
