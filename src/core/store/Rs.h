// A result set: rows of a query, moved through forward, searched, and changed one at a time.
//
// It is a forward cursor while it is only read forward: short results are read whole at once, long
// ones in pieces, so that a report over a million rows holds few of them. MoveFirst after the first
// piece runs the query again; MoveLast and FindFirst read the rest into memory. While a long result
// is half read, other stations can read but not write: see BasiDati::RilasciaLetture.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/sql/Traduttore.h"
#include "core/store/Blocchi.h"
#include "core/values/Valore.h"

namespace fenalto {

enum class ModoModifica { Nessuna, Modifica, Aggiunta };

class Rs {
 public:
  Rs();
  Rs(Rs&&) noexcept;
  Rs& operator=(Rs&&) noexcept;
  ~Rs();

  [[nodiscard]] bool Aperto() const;
  /// Before the first row (only after an empty open), after the last row.
  [[nodiscard]] bool Bof() const;
  [[nodiscard]] bool Eof() const;
  [[nodiscard]] std::int64_t RecordCount();
  void MoveFirst();
  void MoveNext();
  void MoveLast();

  [[nodiscard]] const std::vector<sql::ColonnaUscita>& Colonne() const;
  /// Value of a column of the current row (of the edit buffer while editing), by name without case
  /// or by index. Throws ErroreArchivio on an unknown name, or when there is no row.
  [[nodiscard]] Valore Fields(std::string_view nome) const;
  [[nodiscard]] Valore Fields(std::size_t indice) const;
  /// Index of a column, nothing when unknown.
  [[nodiscard]] std::optional<std::size_t> Indice(std::string_view nome) const;

  /// Goes to the first row that meets the condition. Returns TRUE WHEN NOTHING WAS FOUND (then the
  /// position is unchanged): callers test its negation. Searches of the form `a=1 and b='x'` use a
  /// hash made once a result set.
  bool FindFirst(std::string_view criterio);

  // Changing: only where the result's rows are rows of one table (Modificabile).
  [[nodiscard]] bool Modificabile() const;
  [[nodiscard]] ModoModifica EditMode() const;
  void AddNew();
  /// Takes the record's lock and re-reads the row; the holder when another has it in edit, and then
  /// nothing changes. A row deleted meanwhile gives a holder with an empty station.
  Esito<bool, Detentore> Edit();
  /// Sets a field of the edit buffer, converted to the column's type; Null becomes the empty value
  /// where the column has no Null.
  void Imposta(std::string_view nome, const Valore& valore);
  /// Writes the edit buffer and releases the record's lock. The new row becomes the current one.
  void Update();
  /// Gives the edit up.
  void CancelUpdate();
  /// Deletes the current row; the position moves to the next.
  void Delete();
  void mClose();

 private:
  friend class Archivio;
  struct Interno;
  explicit Rs(std::unique_ptr<Interno> interno);
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto
