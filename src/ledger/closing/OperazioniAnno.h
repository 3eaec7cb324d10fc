// The runs of the year end, each kept with what it wrote, so that it can be taken back as a whole.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::ledger {

/// `Operazione` of a new year; those of registrations are their Origine.
inline constexpr int kOperazioneNuovoAnno = 90;

struct OperazioneAnno {
  std::int64_t id = 0;
  int anno = 0;         ///< year that it closes
  int operazione = 0;   ///< kOperazioneNuovoAnno or the Origine of its registrations
  int annoScritto = 0;  ///< year of its registrations
  bool definitivo = false;
  Data dt;
  std::int64_t daNumDoc = 0;
  std::int64_t aNumDoc = 0;
  std::int64_t daId = 0;
  std::int64_t aId = 0;
  std::int64_t quante = 0;
  Importo totale;
  std::int64_t sostituite = 0;
  Data giorno;
  std::string ora;
  std::string utente;
  std::string prima;

  // As the books are now, filled by LeggiOperazioni.
  std::int64_t rimaste = 0;  ///< registrations still there
  Importo totaleOra;         ///< their debit side

  /// A registration of the run was erased or changed since.
  [[nodiscard]] bool Toccata() const { return rimaste != quante || totaleOra != totale; }
  [[nodiscard]] std::string Nome() const;
};

/// Keeps a run, with hour and user, in the transaction that writes it.
void RegistraOperazione(Ambiente& ambiente, Archivio& tessarc, OperazioneAnno operazione);

/// Runs that closed a year, the last one first.
std::vector<OperazioneAnno> LeggiOperazioni(Ambiente& ambiente, int anno);

/// Condition of the registrations of a run, on Articoli.
std::string CriterioOperazione(const OperazioneAnno& operazione);

/// Takes a run back as a whole, after a question: all its registrations with what is attached to
/// them, or the new year while nothing is in it. False when it was refused or given up.
bool AnnullaOperazione(Ambiente& ambiente, std::int64_t id);

}  // namespace fenalto::ledger
