// A grid to be exported to a spreadsheet file.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/reports/DecimaliStampe.h"
#include "core/values/Esito.h"
#include "core/values/Valore.h"

namespace fenalto::reports {

struct ColonnaFoglio {
  std::string titolo;
  Tipo tipo = Tipo::Testo;
  int decimali = 2;
};

struct Foglio {
  /// Lines above the header: company, year, date of print, title, choices.
  std::vector<std::vector<Valore>> premessa;
  std::vector<ColonnaFoglio> colonne;
  std::vector<std::vector<Valore>> righe;
  /// Rows printed in bold (totals), by index.
  std::vector<std::size_t> totali;
  /// How many decimals a cell of a column of two shows.
  DecimaliStampe decimali = {};
};

/// Real .xlsx: typed numbers and dates with Italian formats, header row frozen, widths fitted. A
/// text that begins with = + - @ stays text. Written beside and renamed.
Esito<bool> EsportaXlsx(const Foglio& foglio, const std::filesystem::path& file);
/// Semicolons, UTF-8 with mark, decimal comma, dates gg/mm/aaaa, CR LF; a text that begins with
/// = + - @ gets an apostrophe before it so that no spreadsheet runs it.
Esito<bool> EsportaCsv(const Foglio& foglio, const std::filesystem::path& file);

}  // namespace fenalto::reports
