// The giro that moves what a VAT document cost from its own party or account to the supplier who is
// to be paid, with that supplier's payment and due dates.
#pragma once

#include <string>

#include "vat/postings/RegistrazioniAutomatiche.h"

namespace fenalto::vat {

struct GiroFornitore {
  ArticoloOrigine articolo;   ///< whose register, protocol and invoice the due dates bear
  ArticoloOrigine documento;  ///< what all this is written with
  std::string cfp;            ///< debited: class and account
  std::string conto;
  std::string fornitore;  ///< credited
  Importo importo;
  std::int64_t posi = 0;  ///< of both rows: that of the document's party row
  std::string causale;
  std::string pagamento;
  std::string descrizione;
  std::string programma;
  ledger::Origine origine = ledger::Origine::Manuale;
  std::string testo;  ///< of the log, before the number
};

/// Writes the giro under the next number, then the immediate payment and the due dates of the
/// supplier. Under the caller's lock and transaction.
void ScriviGiroFornitore(Ambiente& ambiente, const GiroFornitore& giro, LogContabile& log);

}  // namespace fenalto::vat
