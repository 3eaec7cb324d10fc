// Reads the registrations of a VAT register for the list from which one is chosen: newest first, a
// page at a time, whatever their number.
#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "ledger/accounts/RicercaRegistrazioni.h"

namespace fenalto::vat {

struct FatturaLetta {
  std::int64_t nProt = 0;
  std::int64_t numDoc = 0;
  Data data;
  std::string conto;
  std::string descrConto;
  std::string nFat;
  Data dtFat;
  Importo totale;
  std::string riva;
};

class LettoreFatture {
 public:
  static constexpr std::int64_t kDallInizio = std::numeric_limits<std::int32_t>::max();

  explicit LettoreFatture(Ambiente& ambiente) : ambiente_(ambiente), descrizioni_(ambiente) {}

  /// Condition for what a line typed by the user looks for: a number (article, protocol, invoice),
  /// a date, an invoice number from its beginning, a party of the class by code or by a part of its
  /// description. Empty for an empty line.
  std::string Interpreta(const std::string& testo, const std::string& classe);
  /// Registrations of the register with an article number up to `fino`, at most `quante`.
  std::vector<FatturaLetta> Pagina(const std::string& riva, const std::string& condizione,
                                   std::int64_t fino, int quante);
  /// The registration with that number, on whatever register.
  std::optional<FatturaLetta> Una(std::int64_t numDoc);
  /// Forgets the descriptions read so far.
  void Dimentica() { descrizioni_.Dimentica(); }

 private:
  std::vector<FatturaLetta> Leggi(const std::string& condizione, int quante);
  void LeggiTotali(std::vector<FatturaLetta>& lette);
  std::string Parti(const std::string& cercato, const std::string& classe);
  Archivio& Tessarc() { return ambiente_.ArchivioDi("tessarc"); }

  Ambiente& ambiente_;
  ledger::DescrizioniConti descrizioni_;
};

}  // namespace fenalto::vat
