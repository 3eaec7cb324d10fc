// Deposits taken off the due date of the invoice that they were paid for.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::duedates {

/// A deposit and the part of it that a due date takes; both positive.
struct QuotaAnticipo {
  Scadenza anticipo;
  Importo quota;
  /// Nothing of the deposit is left.
  [[nodiscard]] bool Intera() const { return quota == anticipo.Residuo().Assoluto(); }
};

/// Open deposits of a party, the oldest first.
std::vector<Scadenza> AnticipiAperti(Ambiente& ambiente, const std::string& cfp,
                                     const std::string& conto);

/// Asks for each deposit in turn whether it is taken off, until nothing is left to pay of the due
/// date: never more than that, the rest of a greater deposit stays for another one. Empty when
/// there is nothing to take off, or the user took nothing.
std::vector<QuotaAnticipo> ScegliAnticipi(Ambiente& ambiente, const Scadenza& scadenza,
                                          const std::vector<Scadenza>& anticipi);

/// Lowers the due date and closes the deposits (a rest stays open), all or nothing, and tells it.
/// When one of them isn't as it was seen, it is told and nothing is written.
bool DeduciAnticipi(Ambiente& ambiente, const Scadenza& scadenza,
                    const std::vector<QuotaAnticipo>& quote);

}  // namespace fenalto::duedates
