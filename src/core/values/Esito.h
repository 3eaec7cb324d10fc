// Outcome of something that a user can make fail: the value, or what went wrong.
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace fenalto {

/// What a user can cause, told in Italian: what is wrong, about what, and what to do.
struct Errore {
  std::string messaggio;
};

/// A value of type T, or an error E. Errors that a user can cause travel so; exceptions are for
/// what nobody expects.
template <typename T, typename E = Errore>
class [[nodiscard]] Esito {
 public:
  Esito(T valore) : contenuto_(std::in_place_index<0>, std::move(valore)) {}  // NOLINT
  Esito(E errore) : contenuto_(std::in_place_index<1>, std::move(errore)) {}  // NOLINT

  [[nodiscard]] bool Riuscito() const { return contenuto_.index() == 0; }
  explicit operator bool() const { return Riuscito(); }

  [[nodiscard]] const T& Valore() const& { return std::get<0>(contenuto_); }
  [[nodiscard]] T& Valore() & { return std::get<0>(contenuto_); }
  [[nodiscard]] T&& Valore() && { return std::get<0>(std::move(contenuto_)); }
  [[nodiscard]] const E& Errore() const { return std::get<1>(contenuto_); }

 private:
  std::variant<T, E> contenuto_;
};

}  // namespace fenalto
