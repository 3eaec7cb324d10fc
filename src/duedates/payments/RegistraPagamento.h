// A payment: due dates settled, in whole or in part, and the registration that says so, written
// together or not at all. What the windows of payments and the matching of bank statements share.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "duedates/schedules/Scadenza.h"
#include "ledger/registrations/RegistrazioneAutomatica.h"

namespace fenalto::duedates {

/// From one row of a payment to the next.
inline constexpr std::int64_t kPassoPosi = 100;

/// A due date that the payment settles.
struct RigaPagamento {
  /// As it was when the user chose it.
  Scadenza vista;
  Importo importoPagato;
  /// `importoPagato` + `arrotondamento` is what leaves the due date.
  Importo arrotondamento;
  /// The due date goes to state "30"; otherwise to "10", with a rest.
  bool saldata = true;
};

struct Pagamento {
  std::string cfp;  ///< class of all the parties, "C" or "F"
  Data dt;
  std::string causale;
  std::string descrizione;  ///< of the row on the counter-account
  /// Description of a party's row; empty for `descrizione`. The number of the invoice follows it.
  std::string descrizioneParte;
  std::string contropartita;
  std::string contoArrotondamenti;
  ledger::Origine origine = ledger::Origine::PagamentoScadenze;
  /// Off: the due dates alone.
  bool conRegistrazione = true;
  std::vector<RigaPagamento> righe;

  [[nodiscard]] Importo TotPagato() const;
  [[nodiscard]] Importo TotArrotondamento() const;
};

/// Why a row can't be, by the rules of a settled due date and of one with a rest; empty when it
/// can.
std::string RifiutoRigaPagamento(const RigaPagamento& riga);
/// Why its amounts can't be, by the cents of a year in euro and the whole lire of one in lire. What
/// is left of a due date that has more itself may be settled as it is.
std::string RifiutoDecimaliRiga(const Ambiente& ambiente, const RigaPagamento& riga);
/// Why the payment can't be made; empty when it can: no rows, no counter-account, no account for
/// roundings, a party without summary account. Asks nothing. With Origine::PagamentoSingolo the
/// texts are those of the window of one party.
std::string RifiutoPagamento(Ambiente& ambiente, const Pagamento& pagamento);

/// What is looked at after that: a registration has a causal, and it and the accounts exist. Names
/// field and code; empty when all do.
std::string RifiutoCodici(Ambiente& ambiente, const Pagamento& pagamento);

struct PagamentoScritto {
  bool scritto = false;
  std::int64_t numDoc = 0;  ///< 0 without registration
};

/// Takes the numbering lock, looks whether each due date still is as it was chosen, updates them
/// and writes the registration of the selected year, all in one transaction over both databases.
/// When one was changed or paid elsewhere nothing is written, and the user is told which. `altro`
/// is called inside the transaction, for what the caller writes beside. Tells refusals, not
/// success.
PagamentoScritto RegistraPagamento(Ambiente& ambiente, const Pagamento& pagamento,
                                   const std::function<void(std::int64_t numDoc)>& altro = {});

/// What is told of a success: "- Scadenzario aggiornato" and "- Creato articolo contabile 12".
std::string TestoPagamentoScritto(const PagamentoScritto& scritto);

}  // namespace fenalto::duedates
