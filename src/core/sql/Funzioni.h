// Functions of the dialect and checked arithmetic, once for the engine and for the evaluator in
// memory. They work on values as the store keeps them: amounts in ten-thousandths, dates in days.
#pragma once

#include <cstdint>
#include <forward_list>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/values/Intero128.h"

namespace fenalto::sql {

/// A value as the engine holds it. A text is a view: on the row, a literal or the Deposito.
struct Cella {
  enum class Genere : std::uint8_t { Nullo, Intero, Reale, Testo } genere = Genere::Nullo;
  std::int64_t intero = 0;
  double reale = 0;
  std::string_view testo;

  static Cella DiIntero(std::int64_t n) { return {Genere::Intero, n, 0, {}}; }
  static Cella DiReale(double r) { return {Genere::Reale, 0, r, {}}; }
  static Cella DiTesto(std::string_view t) { return {Genere::Testo, 0, 0, t}; }
  [[nodiscard]] bool Nullo() const { return genere == Genere::Nullo; }
  [[nodiscard]] double Numero() const {
    return genere == Genere::Reale ? reale : static_cast<double>(intero);
  }
};

/// Keeps the texts that functions make while an evaluation lasts. One that keeps none allocates
/// nothing: the engine makes one a call.
class Deposito {
 public:
  std::string_view Tieni(std::string testo) { return testi_.emplace_front(std::move(testo)); }
  void Vuota() { testi_.clear(); }

 private:
  std::forward_list<std::string> testi_;
};

/// A calculation that can't be done (overflow, division by zero): its text is for the user.
class ErroreCalcolo : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class Fn : std::uint8_t {
  // Whole numbers and amounts, checked.
  Piu,
  Meno,
  Molt,
  Negato,
  Per,
  Diviso,
  PerReale,
  DivisoReale,
  DivisoIntero,
  Modulo,
  Quoto,
  DataPiu,
  DataMeno,
  Assoluto,
  InteroDaImporto,
  InteroDaReale,
  // Conversions.
  Scala,
  ArrotondaImporto,
  ArrotondaReale,
  ImportoDaReale,
  ImportoDaTesto,
  InteroDaTesto,
  RealeDaTesto,
  TestoImporto,
  TestoReale,
  TestoData,
  TestoBooleano,
  // Texts and dates.
  Mid,
  Left,
  Right,
  Len,
  Trim,
  LTrim,
  RTrim,
  UCase,
  LCase,
  Str,
  Val,
  Anno,
  Mese,
  Giorno,
  Chr,
  InStr,
  InRicerca,
  IniziaRicerca,
  Somiglia,
  // Written by the emitter as operators of the engine.
  RealePiu,
  RealeMeno,
  RealePer,
  RealeNegato,
  RealeDaImporto,
  Diecimila,
  NonZero,
  TestoIntero,
  Unisci,
  SommaTesti,
  SeNullo,
  Identita,
  Numero_
};

/// As a function's number of arguments: any.
inline constexpr int kQuanti = -1;

struct FunzioneMotore {
  const char* nome;  ///< for the engine; null when the emitter writes an operator
  int argomentiMinimi;
  int argomentiMassimi;
  /// Any Null argument gives Null, without a call.
  bool nulloPropaga;
  Cella (*calcola)(std::span<const Cella> argomenti, Deposito& deposito);
};

const FunzioneMotore& Descrizione(Fn funzione);

/// Calls a function, Null rule included; throws ErroreCalcolo.
Cella Calcola(Fn funzione, std::span<const Cella> argomenti, Deposito& deposito);

/// Order of two values of the same type: numbers by amount, texts without case.
int ConfrontaCelle(const Cella& a, const Cella& b) noexcept;

/// Nearest whole number, ties to even; throws ErroreCalcolo out of range.
std::int64_t InteroVicino(double valore);

/// Mean of `conta` amounts that sum to `somma` (128 bits, so that it can't overflow), ties to even.
std::int64_t MediaImporti(Intero128 somma, std::int64_t conta);

}  // namespace fenalto::sql
