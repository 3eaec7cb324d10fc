// The list of everything that a movement may name. It is written inside a transaction: these
// functions tell nothing, and what they return is told once the transaction has ended.
#pragma once

#include <string>

#include "core/session/Ambiente.h"

namespace fenalto::ledger {

/// A row of `ContiClientiFornitori`.
struct VoceContiClientiFornitori {
  std::string cod;
  std::string cfp;
  std::string descrizione = {};
  std::string descrizione2 = {};
};

/// Description of an account or a party; empty when it isn't there.
std::string NomeConto(Ambiente& ambiente, const std::string& cfp, const std::string& conto);

/// Adds the row; one already there takes the texts.
void AggiungiVoce(Archivio& tessarc, const VoceContiClientiFornitori& voce);
/// Changes the texts of the row; false when it isn't there.
bool CambiaVoce(Archivio& tessarc, const VoceContiClientiFornitori& voce);
/// Erases the row of code and class; false when it isn't there.
bool TogliVoce(Archivio& tessarc, const VoceContiClientiFornitori& voce);
/// What is told about a row that isn't there.
std::string VoceNonTrovata(const std::string& cod);

}  // namespace fenalto::ledger
