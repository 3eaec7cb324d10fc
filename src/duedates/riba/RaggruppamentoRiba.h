// Several receipts of a customer that fall due on one day with one payment code become a single
// one: one receipt costs the firm one fee of the bank.
//
// A receipt that was paid in part enters with what is left of it: the customer gets one receipt for
// all that it owes on that day, and what it has paid is asked for no second time. The grouped due
// dates are closed without a day of payment, so that whoever reads them later sees that they were
// grouped and not paid: `Programma` says so (kProgrammaRaggruppata), and their description names
// the due date that took their place.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::reports {
class FabbricaUscite;
}

namespace fenalto::duedates {

/// `Programma` of the due date that takes the place of others.
inline constexpr const char* kProgrammaRaggruppamento = "RaggRiba";

struct SceltaRaggruppamento {
  Data da;            ///< of the due date
  Data a;             ///< as above
  std::string conto;  ///< empty for all customers
};

/// The receipts of one customer, day and payment code.
struct GruppoRiba {
  std::string conto;
  std::string ragsoc;
  Data dt;
  std::string pagamento;
  std::vector<Scadenza> scadenze;  ///< in order of invoice

  /// What is left to pay of all of them.
  [[nodiscard]] Importo Totale() const;
  /// More than one, and together something that a receipt can ask for: credit notes may leave
  /// nothing.
  [[nodiscard]] bool DaRaggruppare() const;
};

/// "fatt.n. 12,15 del 31/01/24, 20 del 28/02/24", in 64 characters: invoices that find no room are
/// counted ("e altre 3").
std::string RiferimentiFatture(const std::vector<Scadenza>& scadenze);

class RaggruppamentoRiba {
 public:
  RaggruppamentoRiba(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), uscite_(uscite) {}

  /// Groups of one receipt too, in order of customer and day. Nothing when the user cancelled.
  [[nodiscard]] std::optional<std::vector<GruppoRiba>> Elenco(const SceltaRaggruppamento& scelta);

  /// Prints the groups and writes nothing. False when there are none or the user gave up.
  bool StampaProva(const SceltaRaggruppamento& scelta, const std::vector<GruppoRiba>& gruppi);

  /// Asks, prints, then closes the due dates of each group of several and writes the one in their
  /// place, all or nothing. Refused, and told which, when a due date isn't any more what it was in
  /// the list. False when nothing was written.
  bool Definitivo(const SceltaRaggruppamento& scelta, const std::vector<GruppoRiba>& gruppi);

 private:
  [[nodiscard]] bool StampaGruppi(const SceltaRaggruppamento& scelta,
                                  const std::vector<GruppoRiba>& gruppi, bool definitivo);
  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
};

}  // namespace fenalto::duedates
