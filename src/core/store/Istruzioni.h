// Prepared statements, kept by shape: the same text with other values is prepared once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/sql/Traduttore.h"
#include "core/store/engine/Connessione.h"

namespace fenalto {

/// A translated statement and a quick way to its columns by name.
class PianoIstruzione {
 public:
  explicit PianoIstruzione(sql::Istruzione istruzione);
  const sql::Istruzione istr;
  /// Index of an output column, without case; the first of that name.
  [[nodiscard]] std::optional<std::size_t> Indice(std::string_view nome) const noexcept;

 private:
  /// Open addressing over the folded names: index + 1, 0 is free. The size is a power of two.
  std::vector<std::uint32_t> tavola_;
};

/// A shape's plan with the statements prepared for it that nobody uses now.
struct VoceCache {
  std::shared_ptr<const PianoIstruzione> piano;
  std::string sql;  ///< for the engine
  std::vector<std::unique_ptr<engine::Istruzione>> liberi;
};

/// A prepared statement while it is used; given back, reset, on destruction.
class Preparata {
 public:
  Preparata() = default;
  /// Takes a free statement of `voce` or prepares one more for `base`; throws ErroreArchivio.
  Preparata(engine::Connessione& connessione, std::shared_ptr<VoceCache> voce,
            const std::string& base);
  Preparata(Preparata&& altra) noexcept = default;
  Preparata& operator=(Preparata&& altra) noexcept;
  ~Preparata() { Restituisci(); }

  [[nodiscard]] engine::Istruzione& Motore() const { return *istruzione_; }
  [[nodiscard]] const std::shared_ptr<const PianoIstruzione>& Disegno() const {
    return voce_->piano;
  }
  void Restituisci() noexcept;

 private:
  std::shared_ptr<VoceCache> voce_;
  std::unique_ptr<engine::Istruzione> istruzione_;
};

/// The shapes used last, at most `capienza`.
class CacheIstruzioni {
 public:
  explicit CacheIstruzioni(std::size_t capienza = 500) : capienza_(capienza) {}

  /// Null when that key isn't kept.
  std::shared_ptr<VoceCache> Cerca(const std::string& chiave);
  std::shared_ptr<VoceCache> Aggiungi(const std::string& chiave,
                                      std::shared_ptr<const PianoIstruzione> piano,
                                      std::string sql);
  void Svuota();

 private:
  using Elenco = std::list<std::pair<std::string, std::shared_ptr<VoceCache>>>;
  std::size_t capienza_;
  Elenco voci_;  ///< used last first
  std::unordered_map<std::string_view, Elenco::iterator> perChiave_;
};

}  // namespace fenalto
