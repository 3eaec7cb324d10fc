// What one engine writes otherwise than another: the emitter and the store ask, and have no text of
// an engine of their own.
//
// Taken for granted of every engine: SELECT, joins, CASE, EXISTS, IN, BETWEEN, UNION, count(*),
// INSERT, UPDATE and DELETE with an alias as the standard has them; yes-no columns hold 0 or 1,
// amounts whole ten-thousandths, dates days; the functions of Funzioni.h are there by their names.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/sql/Funzioni.h"
#include "core/values/Valore.h"

namespace fenalto::sql {

enum class Aggregazione : std::uint8_t { Conta, Somma, Media, Minimo, Massimo, Primo, Ultimo };

class Dialetto {
 public:
  /// What stands before, between and after the operands.
  struct Scrittura {
    std::string_view prima;
    std::string_view tra;
    std::string_view dopo;
  };

  virtual ~Dialetto() = default;

  /// A name, quoted.
  [[nodiscard]] virtual std::string Nome(std::string_view nome) const = 0;
  /// The column that every table has besides its own and that tells its rows apart, a whole number.
  [[nodiscard]] virtual std::string_view Riga() const = 0;
  /// Appends the place of a parameter, from 1; one number may stand in several places.
  virtual void Parametro(std::string& sql, std::size_t numero) const = 0;
  /// A text and a real as they are written into a statement; `cifre` with a point or without.
  [[nodiscard]] virtual std::string Testo(std::string_view testo) const = 0;
  [[nodiscard]] virtual std::string Reale(const std::string& cifre) const = 0;

  /// What follows a text to have it compared and sorted without case.
  [[nodiscard]] virtual std::string_view Collazione() const = 0;
  /// What follows a term of ORDER BY. Null comes before every value, after all in descending order.
  [[nodiscard]] virtual std::string_view Verso(bool discendente) const = 0;
  /// Around a constant as a term of ORDER BY or GROUP BY, where a number would be a column's place.
  [[nodiscard]] virtual Scrittura Costante() const = 0;
  /// The end of a SELECT that gives at most so many rows.
  [[nodiscard]] virtual std::string Primi(std::int64_t righe) const = 0;

  /// Around a yes-no value where the engine wants a condition, and around a condition where it
  /// wants a value.
  [[nodiscard]] virtual Scrittura Condizione() const = 0;
  [[nodiscard]] virtual Scrittura ValoreLogico() const = 0;
  /// A calculation that isn't written as the call of a function of its own. Those without a name in
  /// Funzioni.h (but for Identita) have one. Unisci is asked for the whole chain, whose operands
  /// are never Null; SommaTesti is Null when one of them is.
  [[nodiscard]] virtual std::optional<Scrittura> Operatore(Fn funzione) const = 0;
  /// A mean of amounts is an amount, ties to even; the first and the last are those of the order in
  /// which the rows come.
  [[nodiscard]] virtual Scrittura Aggregato(Aggregazione aggregazione, Tipo tipo) const = 0;

  /// Bytes of a statement, and parameters, past which it is refused.
  [[nodiscard]] virtual std::size_t LunghezzaMassima() const = 0;
  [[nodiscard]] virtual std::size_t ParametriMassimi() const = 0;
};

}  // namespace fenalto::sql
