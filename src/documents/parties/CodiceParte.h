// Automatic coding of customers and suppliers: 0001, 0002, ...
#pragma once

#include <string>
#include <string_view>

#include "core/session/Ambiente.h"

namespace fenalto::documents {

/// Whether new parties are given a code (`CodficaCliFor`).
bool CodificaAutomatica(Ambiente& ambiente);

/// The highest code of the archive, empty when it has none. Codes of digits alone go by number,
/// so that 10000 comes after 9999; any other is compared as text, and one that stands beyond the
/// digits is the highest.
std::string UltimoCodice(Ambiente& ambiente, std::string_view tabella);

/// The code after the highest one, of four digits at least; empty when the highest isn't a number
/// of at most five digits.
std::string CodiceDopo(std::string_view ultimo);

/// Whether coding goes on after a record of that code: four digits.
bool CodiceDiSerie(std::string_view codice);

}  // namespace fenalto::documents
