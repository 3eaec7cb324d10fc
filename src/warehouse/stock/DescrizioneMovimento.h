// What a row of a document that moves stock is about, in lines: causal, party, the supplier's
// document, order, job, lot.
#pragma once

#include <string>

#include "core/session/Ambiente.h"

namespace fenalto::warehouse {

/// Columns that a result set must have for DescriviMovimento, and the sources that they come from:
/// "SELECT " + kColonneMovimento + ", ... FROM " + kDaMovimento.
extern const char* const kColonneMovimento;
extern const char* const kDaMovimento;

/// The lines of the current row.
std::string DescriviMovimento(Ambiente& ambiente, const Rs& riga);

}  // namespace fenalto::warehouse
