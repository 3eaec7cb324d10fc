// The dialect's functions on texts and dates, as the table in Funzioni.cpp lists them.
#pragma once

#include "core/sql/Funzioni.h"

namespace fenalto::sql::funzioni {

using Argomenti = std::span<const Cella>;

Cella Mid(Argomenti a, Deposito& d);
Cella Left(Argomenti a, Deposito& d);
Cella Right(Argomenti a, Deposito& d);
Cella Len(Argomenti a, Deposito& d);
Cella Trim(Argomenti a, Deposito& d);
Cella LTrim(Argomenti a, Deposito& d);
Cella RTrim(Argomenti a, Deposito& d);
Cella UCase(Argomenti a, Deposito& d);
Cella LCase(Argomenti a, Deposito& d);
/// A number already written: a blank in the place of the sign when it isn't negative.
Cella Str(Argomenti a, Deposito& d);
/// The number that a text begins with, blanks ignored; 0 when there is none.
Cella Val(Argomenti a, Deposito& d);
Cella Chr(Argomenti a, Deposito& d);
/// Place (from 1) of the second text in the first, without case, 0 when it isn't there; with three
/// arguments the first is where to begin.
Cella InStr(Argomenti a, Deposito& d);
/// Whether the first text holds, or begins with, the second (folded by PerRicerca), without case
/// and accents: search while typing.
Cella InRicerca(Argomenti a, Deposito& d);
Cella IniziaRicerca(Argomenti a, Deposito& d);
Cella Anno(Argomenti a, Deposito& d);
Cella Mese(Argomenti a, Deposito& d);
Cella Giorno(Argomenti a, Deposito& d);
Cella TestoData(Argomenti a, Deposito& d);

}  // namespace fenalto::sql::funzioni
