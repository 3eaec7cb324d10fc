// A due date that comes with a registration of its own, on the party and on a counter-account:
// deposits and unpaid receipts. Both are written, or neither is.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::duedates {

struct ScadenzaConRegistrazione {
  /// The row to change, as the user saw it; nothing for a new one.
  std::optional<Scadenza> vista;
  /// Columns of the row, without Numero, CFP, Conto and those of the registration.
  std::vector<Coppia> campi;
  std::string cfp;
  std::string conto;

  bool conRegistrazione = true;
  Data dt;  ///< of the registration
  std::string causale;
  std::string descrizione;
  std::string contropartita;
  Importo importo;          ///< of the registration, positive
  bool parteInDare = true;  ///< the party's side; the counter-account has the other
};

/// Why the registration can't be: no description, no counter-account, a party without summary
/// account; empty when it can, and when none is wanted.
std::string RifiutoContabile(Ambiente& ambiente, const ScadenzaConRegistrazione& cosa);
/// Asks what stands against the date: true when the user gives up. A day that is printed on the
/// journal is only told.
bool RinunciaPerData(Ambiente& ambiente, const ScadenzaConRegistrazione& cosa);

struct ScadenzaRegistrata {
  bool scritta = false;
  std::int64_t numero = 0;  ///< of the due date
  std::int64_t numDoc = 0;  ///< 0 without registration
};

/// Takes the numbering lock, then both numbers, and writes in one transaction over both databases.
/// The due date holds year and number of its registration. Tells what went wrong, with `nome` for
/// what was being written, not the success.
ScadenzaRegistrata ScriviScadenzaConRegistrazione(Ambiente& ambiente,
                                                  const ScadenzaConRegistrazione& cosa,
                                                  const std::string& nome);

/// "- Creato articolo contabile 12" on a line of its own after `testo`, when one was written.
std::string ConArticolo(const std::string& testo, const ScadenzaRegistrata& scritta);

/// Today, or the last day of the selected year when today is of another.
Data DataRegistrazioneProposta(Ambiente& ambiente);

}  // namespace fenalto::duedates
