// The registration of a year's quotas, category by category: proposed, never written here.
#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "ledger/registrations/Primanota.h"

namespace fenalto::assets {

/// Quotas of a category in a year, and the accounts of their registration.
struct QuoteCategoria {
  std::string cat;
  std::string descrizione;
  std::string contoAmm;
  std::string contoFondo;
  Importo importo;
};

/// What earlier registrations of quotas have left on accounts, on its natural side.
using QuoteScritte = std::map<std::string, Importo>;

struct PropostaQuote {
  ledger::PropostaRegistrazione registrazione;
  /// Categories with quotas and without both accounts, which it leaves out.
  std::vector<std::string> senzaConti;
};

/// Rows that bring what is written to the year's quotas: typed ones too, all categories. Of
/// accounts that several categories share, what was written counts for the first of them. More than
/// the quotas is taken back.
std::vector<ledger::RigaRegistrazione> RigheDelleQuote(std::span<const QuoteCategoria> quote,
                                                       QuoteScritte costi, QuoteScritte fondi,
                                                       const std::string& causale);

/// The registration of a year, dated its last day; without rows when all is written.
PropostaQuote ProponiQuote(Ambiente& ambiente, int anno);

}  // namespace fenalto::assets
