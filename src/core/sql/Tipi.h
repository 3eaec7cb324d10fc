// Types of expressions: how values of different types meet, and the conversions put between them.
#pragma once

#include <span>
#include <string_view>

#include "core/sql/Albero.h"

namespace fenalto::sql {

/// "un importo", "un testo"... for messages.
std::string_view NomeTipo(Tipo tipo);

/// Number, yes-no aside.
bool ENumero(Tipo tipo);

/// A literal number or text: its type is what it meets.
bool EAdattabile(const Espr& espr);

/// New node that calls a function of the engine.
EsprPtr NuovoCalcolo(Fn funzione, Tipo tipo, EsprPtr primo, EsprPtr secondo = nullptr);

/// Wraps `espr` so that it gives a `tipo`, as an argument or a stored value; refuses what makes no
/// sense. A literal changes the way it is bound instead.
void Converti(EsprPtr& espr, Tipo tipo);

/// Makes values comparable with each other, keeping columns bare wherever it can, so that indexes
/// serve; refuses what doesn't compare.
void Accorda(std::span<EsprPtr* const> valori, std::size_t posizione);

/// A column of digits (ColonnaCatalogo::cifre).
bool ECifre(const Espr& espr);

/// Lets columns of digits meet the numbers they are compared with: a number that is asked for by
/// equality becomes its text, anything else is compared by the columns' digits.
void AccordaCifre(std::span<EsprPtr* const> valori, bool uguaglianza);

/// Makes a number literal the text that a column of digits holds; anything else stays.
void DiventaCifre(Espr& espr);

/// Type that can hold both (branches of IIf, columns of UNION).
Tipo Unifica(Tipo a, Tipo b, std::size_t posizione);

/// Gives a literal on its own its natural type and binding.
void TipoNaturale(Espr& letterale);

/// Binds + - * / \ Mod & and the unary minus, whose operands are bound already.
void LegaAritmetica(EsprPtr& espr);

}  // namespace fenalto::sql
