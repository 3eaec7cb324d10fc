// Reads the registrations of a VAT register for the list from which one is chosen: newest first, a
// page at a time, whatever their number.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/archives/FonteElenco.h"
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

/// Columns: protocol, number, date, party and its name, number and date of the invoice, total. A
/// search looks for a number (article, protocol, invoice), a date, an invoice number from its
/// beginning, or a party of the class by code or by a part of its description.
class LettoreFatture : public archives::FonteElenco {
 public:
  explicit LettoreFatture(Ambiente& ambiente) : ambiente_(ambiente), descrizioni_(ambiente) {}

  /// Reads another register from the next `Comincia` on (none with an empty code); `classe` is that
  /// of its parties. False when it is the same.
  bool Registro(const std::string& riva, const std::string& classe);
  void Comincia(const archives::FiltroElenco& filtro) override;
  Righe Avanti() override;
  [[nodiscard]] bool Finita() const override { return finita_; }
  /// "registro 3 prot. 12   15/03/2024   122,00   9001  Rossi snc", on whatever register it stands;
  /// empty when there is none.
  std::string Testo(std::int64_t numDoc);

 private:
  std::vector<FatturaLetta> Leggi(const std::string& condizione, int quante);
  void LeggiTotali(std::vector<FatturaLetta>& lette);
  /// Condition for what was typed; empty for nothing.
  std::string Interpreta(const std::string& testo);
  std::string Parti(const std::string& cercato);
  Archivio& Tessarc() { return ambiente_.ArchivioDi("tessarc"); }

  Ambiente& ambiente_;
  ledger::DescrizioniConti descrizioni_;
  std::string riva_;
  std::string classe_;
  std::string condizione_;
  std::int64_t fino_ = 0;  ///< where the reading goes on: numbers up to this one
  bool finita_ = false;
};

}  // namespace fenalto::vat
