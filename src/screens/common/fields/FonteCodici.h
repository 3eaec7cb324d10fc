// Where a code field looks codes up: table or query, key and description, filter.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/store/Archivio.h"

namespace fenalto::screens {

struct VoceCodice {
  std::string codice;
  std::string descrizione;
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
};

/// A source over a table, a stored query or a SELECT.
class FonteTabella : public FonteCodici {
 public:
  /// `filtro` is a condition of the dialect, read at each look-up; empty for none.
  FonteTabella(std::function<Archivio&()> archivio, std::string fonte, std::string campoChiave,
               std::string campoDescrizione, std::function<std::string()> filtro = {});
  [[nodiscard]] std::optional<std::string> Descrizione(const std::string& codice) override;
  [[nodiscard]] std::vector<VoceCodice> Cerca(const std::string& testo, int massimo) override;
  [[nodiscard]] std::string Canonico(const std::string& codice) override;

 private:
  /// The source's rows under a condition, at most `massimo` (0 for all).
  [[nodiscard]] std::string Da(const std::string& condizione, int massimo = 0) const;
  std::function<Archivio&()> archivio_;
  std::string fonte_;
  std::string chiave_;
  std::string descrizione_;
  std::function<std::string()> filtro_;
};

}  // namespace fenalto::screens
