// Payment codes put into words.
#pragma once

#include <functional>
#include <string>

#include "core/values/Esito.h"
#include "duedates/codes/Rate.h"

namespace fenalto::duedates {

/// The description built from the rates: "50% 30GG FM Bonifico bancario, 50% 60GG FM Bonifico
/// bancario". `descrizioneTipo` gives the description of a type of rate. An error when the code has
/// no rates.
Esito<std::string> ComponiDescrizione(
    const CodicePagamento& codice,
    const std::function<std::string(const std::string& tipo)>& descrizioneTipo);

/// A rate as the grid of the code lists it: "33,3333% 30GG FINE MESE", with the windows of its code
/// that move dates.
std::string TestoRata(const RataPagamento& rata, const CodicePagamento& codice);

/// What inserting an invoice with this code does besides: two lines.
std::string InformazioneCodice(const CodicePagamento& codice);

}  // namespace fenalto::duedates
