// Where a code field looks codes up, what it shows of them and what it opens: one table for all
// fields (`Fonti`), in which a source has a name.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::archives {

struct VoceCodice {
  std::string codice;
  std::string descrizione;
  std::string classe = {};  ///< of an account that isn't of the source's own class; else empty
};

class FonteCodici {
 public:
  virtual ~FonteCodici() = default;
  /// Description of a code; nothing when it doesn't exist.
  [[nodiscard]] virtual std::optional<std::string> Descrizione(const std::string& codice) = 0;
  /// At most `massimo` entries whose code begins with the text or whose description holds it,
  /// ignoring case and accents; those whose code begins with it come first.
  [[nodiscard]] virtual std::vector<VoceCodice> Cerca(const std::string& testo, int massimo) = 0;
  /// The code as stored, for one typed in another case.
  [[nodiscard]] virtual std::string Canonico(const std::string& codice) { return codice; }
  /// Codes outside the source that a text stands for which means nothing in it: those with that
  /// very code, else those of which it is a part; two at least when there are several.
  [[nodiscard]] virtual std::vector<VoceCodice> Altrove(const std::string& /*testo*/) { return {}; }
  /// The code that a text stands for by another sign of its own, as a barcode; empty for none.
  [[nodiscard]] virtual std::string DaSegno(const std::string& /*testo*/) { return {}; }
  /// The function that searches the codes in a window of its own; empty for none.
  [[nodiscard]] virtual std::string Ricerca() const { return {}; }
  /// The archive behind the codes, by its table in capitals; empty for none.
  [[nodiscard]] virtual std::string Archivio() const { return {}; }
};

/// A source over a table whose key is `Cod`. Conditions are of the store's language; empty for
/// none.
struct DescrizioneFonte {
  std::string nome;
  std::string tabella;  ///< or stored query
  std::string archivio = {};
  std::string condizione = {};
  std::string descrizione = "Descrizione";  ///< column shown beside a code
  std::string elencati = {};       ///< further condition of those listed; any other can be typed
  std::string chiave = "tessarc";  ///< database
  /// Columns that are searched by word beside code and description: with any, a text finds the
  /// codes that have all its words, in whatever order and column.
  std::vector<std::string> anche = {};
  /// Table and column, keyed by `Cod`, whose words count as the code's own; none without.
  std::string tabellaSotto = {};
  std::string campoSotto = {};
  std::string segno = {};    ///< column of another sign that a code is known by
  std::string ricerca = {};  ///< function that searches in a window of its own
};

/// All sources that have a name.
const std::vector<DescrizioneFonte>& Fonti();
/// One of them; std::logic_error for an unknown name.
const DescrizioneFonte& DescrizioneDiFonte(std::string_view nome);

std::shared_ptr<FonteCodici> Fonte(Ambiente& ambiente, std::string_view nome);
std::shared_ptr<FonteCodici> Fonte(Ambiente& ambiente, DescrizioneFonte descrizione);
/// Codes that stand in no table, in the order given.
std::shared_ptr<FonteCodici> FonteInMemoria(std::vector<VoceCodice> voci);
/// Name of the source of the accounts of a class ("P", "C", "F"; any other counts as "P").
std::string NomeFonteConti(const std::string& classe);
/// Name of the source that finds accounts of the other classes too: its own come first.
std::string NomeFonteContiOvunque(const std::string& classe);
/// The same for a contra-entry.
std::string NomeFonteContropartite(const std::string& classe);
/// Accounts of a class.
std::shared_ptr<FonteCodici> FonteConti(Ambiente& ambiente, const std::string& classe);
/// The same for a contra-entry.
std::shared_ptr<FonteCodici> FonteContropartite(Ambiente& ambiente, const std::string& classe);

}  // namespace fenalto::archives
