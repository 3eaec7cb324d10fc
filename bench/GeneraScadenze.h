// A generated company with many due dates, most of them paid long ago.
#pragma once

#include <string>

#include "bench/GeneraDitta.h"

namespace fenalto::banco {

inline constexpr const char* kScadenzeMolte = "ScadenzeMolte";
inline constexpr int kQuanteScadenze = 500'000;
/// The last ones of each class, by number, are open.
inline constexpr int kAperteClienti = 12'000;
inline constexpr int kAperteFornitori = 8'000;
/// Receipts among the open ones of customers.
inline constexpr int kRicevute = 400;
inline constexpr const char* kBancaRicevute = "B1";

/// Makes the company unless it is there: registrations and parties of GeneraDitta, and
/// kQuanteScadenze due dates of those parties.
void GeneraScadenze(const OpzioniAmbiente& opzioni);

}  // namespace fenalto::banco
