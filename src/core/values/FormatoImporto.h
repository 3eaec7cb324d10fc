// Amounts as people type and read them in Italian: one parser, one formatter.
#pragma once

#include <string>
#include <string_view>

#include "core/values/Esito.h"
#include "core/values/Importo.h"

namespace fenalto {

/// Reads an amount as typed: blanks around it, one leading sign with nothing after it but the
/// number, comma or point as the decimal mark, thousands marks in groups of three ("1.234,56",
/// "1234.56" from the keypad, "-3", " 3,5 ", ",5", "1.234.567"). A comma is always the decimal
/// mark. A single point without a comma is a thousands mark when exactly three digits follow it and
/// one to three, not beginning with zero, stand before ("1.234" = 1234), else the decimal mark
/// ("0.123", "12.34", "1234.567"). Empty text is zero. More than four decimals, letters, marks out
/// of place
/// ("1,234.5", "12.34.567", "3,") or a value out of range give an error in Italian that says which.
Esito<Importo> LeggiImporto(std::string_view testo);

/// Writes with comma, at least `decimaliMinimi` decimals (0 to 4), more when the value has them;
/// with thousands marks unless `migliaia` is false. Zero is "0,00" for 2 decimals. The output is
/// always read back by LeggiImporto to the same value.
std::string ScriviImporto(Importo importo, int decimaliMinimi, bool migliaia = true);

/// Writes with exactly `decimali` decimals, rounded to the nearest, halves away from zero, for
/// fixed pictures on paper and panels: five decimals or more end in zeros, and what is rounded to
/// zero loses its minus.
std::string ScriviImportoFisso(Importo importo, int decimali, bool migliaia = true);

/// The amount picture of a panel or a report: right-aligned in `larghezza` characters with
/// thousands marks, three decimals in euro and none in lire, further decimals rounded. It is the
/// mask " ###.###.###,###" (euro) or "###.###.###.###," (lire, whose comma does not print but keeps
/// its place), padded with blanks on the left when the field is wider than the mask; a narrower
/// field takes the end of the mask, so that three characters or fewer in euro show whole units and
/// four only the decimals. The minus stands directly before the number. A number too long fills the
/// picture with asterisks.
std::string PictureImporto(Importo importo, int larghezza, bool euro);

}  // namespace fenalto
