// Rows read from a statement, held tight: eight bytes and a mark a field, texts one after the
// other.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "core/sql/Traduttore.h"
#include "core/values/Valore.h"

struct sqlite3_stmt;
struct sqlite3_value;

namespace fenalto {

/// Value of the engine as one of `tipo`.
Valore ValoreMotore(sqlite3_value* valore, Tipo tipo);

class RigheLette {
 public:
  /// `conIdentita`: the statement has one more column than `colonne`, the row's identity.
  void Prepara(const std::vector<sql::ColonnaUscita>& colonne, bool conIdentita);

  [[nodiscard]] std::size_t Numero() const { return righe_; }
  /// Appends the row that the statement stands on.
  void Accoda(sqlite3_stmt* istruzione);
  void Accoda(const std::vector<Valore>& valori, std::int64_t identita);
  void Sostituisci(std::size_t riga, const std::vector<Valore>& valori);
  void Elimina(std::size_t riga);
  void Svuota();

  [[nodiscard]] Valore Campo(std::size_t riga, std::size_t colonna) const;
  [[nodiscard]] std::int64_t Identita(std::size_t riga) const;

  /// Hash of a field and comparison with a value that agree with the equality of Valore; Null is
  /// equal to nothing.
  [[nodiscard]] std::size_t Hash(std::size_t riga, std::size_t colonna) const;
  [[nodiscard]] bool Uguale(std::size_t riga, std::size_t colonna, const Valore& valore) const;
  [[nodiscard]] bool Nullo(std::size_t riga, std::size_t colonna) const {
    return !presenti_[riga * larghezza_ + colonna];
  }

 private:
  [[nodiscard]] std::string_view Testo(std::uint64_t posto) const;
  void ScriviTesto(std::uint64_t& cella, std::string_view testo);
  void Scrivi(std::size_t cella, Tipo tipo, const Valore& valore);

  const std::vector<sql::ColonnaUscita>* colonne_ = nullptr;
  std::size_t larghezza_ = 0;
  std::size_t righe_ = 0;
  bool conIdentita_ = false;
  /// A number, the bits of a real, or the place of a text in testi_ (its length, then its bytes).
  std::vector<std::uint64_t> celle_;
  std::vector<std::uint8_t> presenti_;
  std::vector<char> testi_;
};

/// Hash of a value that agrees with RigheLette::Hash.
std::size_t HashValore(const Valore& valore);

}  // namespace fenalto
