// Words of the dialect: one pass over the text, shared by the shape of a text and by the parser, so
// that both number the literals alike.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/sql/Traduttore.h"

namespace fenalto::sql {

enum class GenereSegno : std::uint8_t {
  Fine,
  Parola,  ///< keyword or name
  Quadre,  ///< [name]
  Testo,   ///< 'text' or "text"
  Numero,
  Data,      ///< #mm/dd/yyyy#
  Booleano,  ///< True, False
  Simbolo
};

/// One word of a text. Symbols of two characters are told by a letter: 'n' <>, 'l' <=, 'g' >=.
struct Segno {
  GenereSegno genere = GenereSegno::Fine;
  char simbolo = 0;
  /// A number that stays part of the shape (TOP n, lists of ORDER BY and GROUP BY): no literal.
  bool fisso = false;
  /// A number that stands alone against a column (comparison, IN, VALUES, SET): its type comes from
  /// the column, so whole and decimal ones share a shape.
  bool puro = false;
  /// A number with a decimal point.
  bool decimale = false;
  /// A number with an exponent or more than four decimals.
  bool reale = false;
  /// A text after LIKE that begins with plain characters: a range of an index can serve.
  bool prefisso = false;
  std::size_t posizione = 0;
  /// As written, with quotes, brackets or marks.
  std::string_view grezzo;

  [[nodiscard]] bool ELetterale() const {
    return genere == GenereSegno::Testo || genere == GenereSegno::Data ||
           genere == GenereSegno::Booleano || (genere == GenereSegno::Numero && !fisso);
  }
};

/// Reads a text word by word.
class Lessico {
 public:
  explicit Lessico(std::string_view testo) : testo_(testo) {}

  /// Next word into `segno`; false when the text is wrong (then Errore() tells why).
  bool Prossimo(Segno& segno);
  [[nodiscard]] const ErroreSql& Errore() const { return errore_; }

 private:
  /// Keywords that change how what follows is read.
  enum class Chiave : std::uint8_t {
    Nessuna,
    By,
    Top,
    Vero,
    Falso,
    Chiude,  ///< HAVING, UNION: ends a list of ORDER BY or GROUP BY
    Seleziona,
    Come,     ///< LIKE: a pattern follows
    Lista,    ///< IN, VALUES: a list of values may follow
    Operando  ///< a value follows (AND, WHERE...): a minus before a digit is its sign
  };
  static Chiave ChiaveDi(std::string_view parola);

  void LeggiParola(Segno& segno);
  void LeggiNumero(Segno& segno);
  bool LeggiRacchiuso(Segno& segno, char apertura);
  bool LeggiSimbolo(Segno& segno);
  void SegnaParentesi(char simbolo);
  [[nodiscard]] bool AttendeOperando() const;
  [[nodiscard]] bool StaDaSolo() const;
  bool Rifiuta(std::size_t posizione, const char* motivo);

  std::string_view testo_;
  std::size_t i_ = 0;
  GenereSegno prima_ = GenereSegno::Fine;
  char simboloPrima_ = 0;
  Chiave chiavePrima_ = Chiave::Operando;
  int livello_ = 0;
  int livelloBy_ = -1;
  int livelloLista_ = -1;
  ErroreSql errore_;
};

/// The literal that a word holds.
Letterale LetteraleDi(const Segno& segno);
/// The name that a word or a bracketed word holds.
std::string_view NomeDi(const Segno& segno);
/// What a LIKE pattern begins with before its first mark.
std::string_view PrefissoDi(std::string_view modello);
/// Equal without case, ASCII only: keywords.
bool ParolaUguale(std::string_view parola, std::string_view minuscola) noexcept;

}  // namespace fenalto::sql
