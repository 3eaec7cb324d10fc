// What the store throws when it cannot do what it was asked: nobody expects it, and it is caught
// once per user's action.
#pragma once

#include <stdexcept>
#include <string>

namespace fenalto {

class ErroreArchivio : public std::runtime_error {
 public:
  enum class Causa {
    Sql,       ///< a text the dialect refuses: a fault of the program
    Occupato,  ///< another station held the data too long
    DiscoPieno,
    SolaLettura,
    Danneggiato,  ///< not a database, or a damaged one
    Mancante,
    TroppoNuovo,  ///< schema of a later version of the program
    Vincolo,      ///< a key that exists already
    Memoria,
    Altro
  };
  /// `messaggio` in Italian: what happened, about which file or text, what to do.
  ErroreArchivio(Causa causa, const std::string& messaggio)
      : std::runtime_error(messaggio), causa_(causa) {}
  [[nodiscard]] Causa PerQuale() const { return causa_; }

 private:
  Causa causa_;
};

}  // namespace fenalto
