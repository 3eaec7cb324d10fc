// SQL text of the program's own dialect, translated for the engine.
//
// text -> Forma (lexer: the text with its literals taken out) -> parser -> syntax tree -> binder
// (names without case against the catalogue, a type for every expression) -> emitter. Literals
// become bound parameters, so a text used in a loop with other values has the same Forma and is
// prepared once, and a quote in a customer's name can't become SQL.
//
// Amounts are stored as whole ten-thousandths and dates as days since 30/12/1899; in the text an
// amount is in units and a date is #mm/dd/yyyy#. The binder inserts the conversions.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/sql/Catalogo.h"
#include "core/values/Esito.h"
#include "core/values/Valore.h"

namespace fenalto::sql {

class Dialetto;

/// A statement that the dialect refuses: the reason in Italian, and where in the text (from 0).
struct ErroreSql {
  std::string motivo;
  std::size_t posizione = 0;
  /// One message with reason, position and text, for the user.
  [[nodiscard]] std::string Messaggio(std::string_view testo) const;
};

/// A literal taken out of a text, as written there.
struct Letterale {
  enum class Genere { Testo, Numero, Data, Booleano, Nullo };
  Genere genere = Genere::Testo;
  /// Content without quotes and escapes; "mm/dd/yyyy" of a date; digits of a number.
  std::string testo;
};

/// The text without its literals: equal `chiave` means the same prepared statement.
struct Forma {
  std::string chiave;
  std::vector<Letterale> letterali;
};

/// How a literal is bound to the engine.
enum class Legame {
  Testo,
  ModelloLike,  ///< a LIKE pattern, bound as it is for the store's own LIKE function
  Intero,
  Importo,  ///< number of units, bound as ten-thousandths
  Reale,
  Data,      ///< bound as days
  Booleano,  ///< 0 or 1
  Nullo,
  InizioLike,  ///< what every text like the pattern begins with: the low end of a range
  FineLike,    ///< after every text that begins so
  Cifre        ///< a number as a column of digits holds it: its text, nothing for 0
};

struct ParametroSql {
  std::size_t letterale = 0;  ///< index into Forma::letterali
  Legame legame = Legame::Testo;
};

struct ColonnaUscita {
  std::string nome;
  Tipo tipo = Tipo::Testo;
  std::string tabella;  ///< table the column comes from as it stands; empty for an expression
  std::string colonna;  ///< its name there
  bool cifre = false;   ///< ColonnaCatalogo::cifre
};

/// A translated statement, ready to be prepared and cached under its Forma.
struct Istruzione {
  enum class Genere { Selezione, Inserimento, Aggiornamento, Cancellazione };
  Genere genere = Genere::Selezione;
  std::string sql;                      ///< for the engine
  std::vector<ParametroSql> parametri;  ///< what to bind to its parameters, from the first
  std::vector<ColonnaUscita> colonne;   ///< of a SELECT, in order
  /// Table whose rows the result can change: set when every row of a SELECT is one row of one
  /// table; then the statement has a last, hidden column with that row's identity (Dialetto::Riga).
  std::string tabellaBase;
  /// Tables read or written, by catalogue name.
  std::vector<std::string> tabelle;
};

/// Splits a text into shape and literals. Fails on an unclosed quote, bracket or date.
Esito<Forma, ErroreSql> FormaDi(std::string_view testo);

/// Translates a text for an engine. A bare table or query name stands for SELECT * FROM it.
Esito<Istruzione, ErroreSql> Traduci(std::string_view testo, const Catalogo& catalogo,
                                     const Dialetto& dialetto);

/// The value to bind for a literal; an error when the literal can't be of that kind ('abc' compared
/// with an amount, #13/45/2024#).
Esito<Valore, ErroreSql> ValoreLegato(const Letterale& letterale, Legame legame);

}  // namespace fenalto::sql
