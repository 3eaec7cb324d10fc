// Reads the registrations of the selected year for the list from which one is chosen: newest first,
// a page at a time, whatever their number.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "ledger/accounts/RicercaRegistrazioni.h"

namespace fenalto::ledger {

struct ArticoloLetto {
  std::int64_t numero = 0;
  Data data;
  std::string dare;  ///< account and its description, or "DIVERSI"
  std::string avere;
};

/// What a line typed by the user looks for.
struct RicercaArticoli {
  std::string condizione;  ///< of the dialect; empty for all
  /// An index answers; otherwise the registrations must be gone through, a stretch at a time.
  bool immediata = true;
  bool impossibile = false;  ///< nothing can meet it
};

class LettoreArticoli {
 public:
  explicit LettoreArticoli(Ambiente& ambiente) : ambiente_(ambiente), descrizioni_(ambiente) {}

  /// Registrations with a number below `sotto` and above `oltre`, at most `quante`.
  std::vector<ArticoloLetto> Pagina(const RicercaArticoli& ricerca, std::int64_t sotto,
                                    std::int64_t oltre, int quante);
  std::optional<ArticoloLetto> Uno(std::int64_t numero);
  /// One more than the highest number of the year.
  std::int64_t Inizio();
  /// A number, a date, or an account of the head by code or by a part of its description.
  RicercaArticoli Interpreta(const std::string& testo);
  /// Forgets the descriptions read so far.
  void Dimentica() { descrizioni_.Dimentica(); }

 private:
  std::string ConConto(const std::string& testo);
  std::string Descritto(const std::string& cfp, const std::string& conto);
  Archivio& Tessarc() { return ambiente_.ArchivioDi("tessarc"); }

  Ambiente& ambiente_;
  DescrizioniConti descrizioni_;
};

}  // namespace fenalto::ledger
