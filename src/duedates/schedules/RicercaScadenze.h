// The search that fills the grids of due dates.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::duedates {

/// What narrows a search; empty, 0 and the null date narrow nothing.
struct RicercaScadenze {
  std::string cfp;
  std::string conto;
  std::string stato;
  int anno = 0;
  std::string nFat;
  Data dtFat;
  std::int64_t nProt = 0;
  std::int64_t articolo = 0;
  std::string riva;
  Data daData;  ///< of the due date
  Data aData;
  /// Only these, if given.
  std::optional<std::vector<std::int64_t>> numeri;
  bool anchePagate = false;   ///< those at state '30' too, when `stato` is empty
  bool soloAnticipi = false;  ///< deposits alone
  std::string ordine = "SCADENZE.DT, SCADENZE.NUMERO";
};

/// A line of the grids.
struct RigaScadenza {
  std::string cfp;
  std::string conto;
  std::string ragsoc;
  Data dataScad;
  bool anticipo = false;
  Importo importoE;
  Importo pagato;
  std::string descrizione;  ///< its first 35 characters
  std::int64_t nProt = 0;
  std::string nFat;
  Data dtFat;
  std::string tipo;
  std::string stato;
  std::int64_t numero = 0;
  [[nodiscard]] Importo Residuo() const { return importoE - pagato; }
};

/// The statement over `scadenzario`, in which ContiClientiFornitori is linked.
std::string SqlScadenze(const RicercaScadenze& ricerca);
/// The archive with a table of the other database linked.
Archivio& ScadenzarioCon(Ambiente& ambiente, const char* tabella);
/// The archive with the list of accounts linked.
Archivio& ScadenzarioConConti(Ambiente& ambiente);

/// Reads the rows one by one; `riga` returns false to stop.
void CercaScadenze(Ambiente& ambiente, const RicercaScadenze& ricerca,
                   const std::function<bool(const RigaScadenza&)>& riga);

}  // namespace fenalto::duedates
