// The text of one condition, safe for any value.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

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

/// The words of a text, each once.
std::vector<std::string> ParoleCercate(std::string_view testo);
/// Each word of the text, in any order, is held by one of the fields, or meets the further
/// condition that `sotto` gives for it; "" without words.
std::string CriterioParole(const std::vector<std::string>& campi, std::string_view testo,
                           const std::function<std::string(const std::string& parola)>& sotto = {});

/// A value as it is written in SQL text.
std::string LetteraleSql(const Valore& valore);

}  // namespace fenalto::sql
