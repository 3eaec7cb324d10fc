// What every confirmation goes through, in one place: checks, numbering locks, one more look under
// them, one transaction; and what is told when something fails.
//
//   const bool scritta = Esegui(
//       ambiente, {.nonRiuscita = "conferma dell'ordine non riuscita: ",
//                  .numerazioni = {"FATTURECLI", "ARTICOLI"},
//                  .prima = [&] { return Controlla(); },
//                  .scrivi = [&] { return Scrivi(); }});
//   if (!scritta) return false;
//   ... close the record, tell the number ...
//
// What was typed isn't touched before the transaction has ended well: whatever stops a
// confirmation, the form is as it was and can be confirmed again.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/records/Numerazioni.h"
#include "core/store/BasiDati.h"

namespace fenalto::records {

inline constexpr std::string_view kSiPuoRiprovare =
    "\nNon è stato scritto nulla, si può riprovare.";
inline constexpr std::string_view kAncoraSulloSchermo =
    "\nNon è stato scritto nulla: la registrazione è ancora sullo schermo, si può riprovare";
inline constexpr std::string_view kNullaScritto = "\nNon è stato scritto nulla.";

/// What is told of a failure: the error stands between the two.
struct TestoGuasto {
  std::string prima;
  std::string_view dopo = kSiPuoRiprovare;
};

/// Does a piece of work and tells what is thrown; false then, otherwise what the work returns.
bool Tenta(Ambiente& ambiente, const TestoGuasto& guasto, const std::function<bool()>& lavoro);

/// Runs `scrivi` in a transaction, or as a part of the one that a caller holds who writes many at
/// once. What it returns is why nothing is to be written, empty when all was: only then it is
/// committed. Throws what the writing throws, and then nothing was written.
std::string InTransazione(Ambiente& ambiente, Transazione::Ambito ambito,
                          const std::function<std::string()>& scrivi);

struct Conferma {
  /// "conferma della registrazione non riuscita: ", before the error.
  std::string nonRiuscita;
  /// What is said after the error, and after a refusal of `scrivi`.
  std::string_view dopoErrore = kSiPuoRiprovare;
  std::string_view dopoRifiuto = kNullaScritto;
  std::vector<std::string_view> numerazioni = {};
  Transazione::Ambito ambito = Transazione::Ambito::Tutto;
  /// Checks and questions, before any lock. False stops; it has told why.
  std::function<bool()> prima = {};
  /// What may have changed since, looked at again under the locks. False stops; it has told why.
  std::function<bool()> sottoBlocco = {};
  /// Writes everything, in the transaction. The refusal, empty when all was written.
  std::function<std::string()> scrivi = {};
  /// Puts right what lies outside the databases, when the transaction was given up.
  std::function<void()> annulla = {};
};

/// True when everything was written.
bool Esegui(Ambiente& ambiente, const Conferma& conferma);

}  // namespace fenalto::records
