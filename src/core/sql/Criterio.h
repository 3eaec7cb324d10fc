// The text of one condition, safe for any value.
#pragma once

#include <string>
#include <string_view>

#include "core/values/Valore.h"

namespace fenalto::sql {

/// `campo operatore valore` in the dialect: a text quoted with its quotes doubled, a date as
/// #mm/dd/yyyy#, numbers as they are with a point, yes-no as True or False; Null gives
/// "campo IS NULL" (or IS NOT NULL with "<>"). `operatore` is one of = <> >= <= > <.
std::string Criterio(std::string_view campo, std::string_view operatore, const Valore& valore);

/// Conditions of search while typing: the field holds (begins with) the text, without case and
/// accents.
std::string CriterioContiene(std::string_view campo, std::string_view testo);
std::string CriterioInizia(std::string_view campo, std::string_view testo);

/// A value as it is written in SQL text.
std::string LetteraleSql(const Valore& valore);

}  // namespace fenalto::sql
