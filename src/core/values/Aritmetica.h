// The shared arithmetic of postings and documents, in exact decimal arithmetic.
//
// Every function works on the absolute value and puts the sign back unless it says otherwise.
// "Whole part" (Int) steps are done in integers, so that 1.13 never becomes 112.99999. Where an
// intermediate result is held as an amount it is rounded there to four decimals, to the nearest and
// ties to even; everywhere else intermediates are exact. A result, or a net price or product on
// the way to it, that does not fit an amount throws FuoriCampo. `euro` false means
// that the year is kept in lire, whose rate is the fixed 1936.27 (Council Regulation (EC) No
// 2866/98).
#pragma once

#include <optional>

#include "core/values/Importo.h"

namespace fenalto {

/// 1936.27 lire for one euro.
inline constexpr Importo kLirePerEuro = Importo::DaDecimillesimi(19'362'700);

/// How Arrotonda rounds.
enum class ModoArrotonda { Eccesso = 1, Difetto = 2, Vicino = 3 };

/// The mode of that number (1 up, 2 down, 3 nearest); nothing for any other.
[[nodiscard]] std::optional<ModoArrotonda> ModoDaNumero(int numero);

/// Rounds to `decimali` decimals (0 to 4, else std::invalid_argument). Up adds 0.9999/10^decimali
/// held at four decimals and cuts, so that with one decimal or more an exact amount rises by one in
/// the last place (1.13 to two decimals is 1.14); nearest adds half and cuts: halves go away from
/// zero.
Importo Arrotonda(Importo importo, int decimali, ModoArrotonda modo);

/// VAT of a taxable amount at `aliquota` percent. Euro: to the nearest cent, halves away from zero,
/// the product plus half a cent being held at four decimals before the cut. Lire: up to the next
/// whole lira unless the fraction is under 0.001.
Importo CalcolaIva(Importo imponibile, Importo aliquota, bool euro);

/// The part of a row's VAT that isn't deductible, `percInd` percent of it. Euro: cut to cents
/// towards minus infinity; lire: to whole lire.
Importo IvaIndetraibile(Importo iva, Importo percInd, bool euro);

/// Taxable part of a gross amount: gross / (1 + aliquota / 100) at four decimals, then
/// Arrotonda(2, Vicino), in euro and lire alike. A rate of -100 throws std::domain_error.
Importo ScorporaImponibile(Importo lordo, Importo aliquota);

/// Amount net of a cash discount of `sconto` percent, on the signed amount. Euro: the net is cut to
/// cents towards minus infinity. Lire: the discount is cut to whole lire (Int, towards minus
/// infinity) and subtracted.
Importo ApplicaScontoCassa(Importo importo, Importo sconto, bool euro);

/// Euro to lire, to the nearest whole lira (Int of the product plus one half); unchanged when
/// `converti` is false.
Importo EuroInLire(Importo importo, bool converti);

/// Lire to euro with `decimali` decimals (0 to 4): Int((importo / 1936.27 + 0.5 / S) × S) / S,
/// where S is 10 to the power of the decimals and Int cuts towards minus infinity.
Importo LireInEuro(Importo importo, int decimali);

/// Price after a cascade of three percentage discounts: each discount applies to what the one
/// before left, and is rounded once to four decimals before it is subtracted.
Importo PrezzoNetto(Importo prezzo, Importo sconto1, Importo sconto2, Importo sconto3);

/// Amount of a document row: net price (PrezzoNetto) times quantity. Euro: cut to cents towards
/// minus infinity, or to the nearest cent, halves away from zero, when `arrotonda`. Lire: Int.
/// The product is held at four decimals before the cut.
Importo ImportoRiga(Importo prezzo, Importo sconto1, Importo sconto2, Importo sconto3,
                    Importo quantita, bool euro, bool arrotonda);

}  // namespace fenalto
