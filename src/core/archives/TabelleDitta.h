// What each table of a company is to it as a whole: whether a company made as a copy of another
// keeps it, and whether its rows belong to a year.
//
// A table that the schema gains adds its line here; a test compares the two.
#pragma once

#include <span>

namespace fenalto::archives {

/// What becomes of a table in a company made as a copy.
enum class Sorte {
  Vuota,   ///< what was recorded: never goes along
  Scelta,  ///< goes along when the user keeps its kind
  Tenuta,  ///< codes and what the program counts on: always goes along
};

/// Kinds of data that the user keeps or leaves; `Nessuna` for tables that leave no choice.
enum class SceltaDati {
  Nessuna,
  Conti,
  Clienti,
  Fornitori,
  Cespiti,
  Prodotti,
  Distinte,
  OrdiniClienti,
  OrdiniFornitori,
  Commesse
};

struct TabellaDitta {
  const char* chiave;  ///< database: "tessarc" or "scadenzario"
  const char* tabella;
  Sorte sorte;
  /// Column of the year that a row belongs to and goes with when that year is deleted; null when
  /// rows belong to no year.
  const char* anno = nullptr;
  SceltaDati scelta = SceltaDati::Nessuna;
  /// The rows of that kind, of a table that holds several; null for all.
  const char* condizione = nullptr;
};

/// Every table, those with several kinds of rows once for each kind.
std::span<const TabellaDitta> TavolaTabelle();

}  // namespace fenalto::archives
