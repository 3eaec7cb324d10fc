// The registration of an issued invoice, from the totals of its document: written, re-created whole
// on a change, erased.
//
// As RegistrazioniAutomatiche.h: under the caller's numbering lock and transaction, without a word.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "vat/postings/RegistrazioniAutomatiche.h"

namespace fenalto::vat {

/// A row of a document's totals: one account and VAT code.
struct TotaleDocumento {
  std::string conto;
  std::string codIva;
  Importo importo;
  Importo perc;
};

struct RitenutaDocumento {
  std::string codice;
  std::string descrizione;
  Importo importo;
};

struct RichiestaArticoloFattura {
  bool contabilizza = true;  ///< accounting is wanted at all
  bool nuovo = true;         ///< the document is new
  std::vector<TotaleDocumento> totali;
  std::string riva;
  std::int64_t numDoc = 0;
  Data dt;
  std::string conto;  ///< the party
  std::int64_t nProt = 0;
  std::string pagamento;
  Importo scontoCassa;
  int anno = 0;
  bool inLire = false;  ///< amounts are converted to lire
  bool ep = false;
  Data dtIncasso;
  std::string tipoDoc;
  bool prezziIvati = false;
  std::string descrizione;
  Data dtFat;
  std::string nFat;
  std::vector<RitenutaDocumento> ritenute;  ///< at most two
  bool nVarAnPrec = false;
  std::int64_t commessa = 0;
  bool registraPagamento = true;  ///< the caller asks for the immediate payment
  bool senzaScadenze = false;     ///< the caller's flag against due dates
};

/// False when it stopped (the reason is in the log or in `avvisi`); then nothing was written.
/// `numDoc` receives the number of the registration.
bool CreaArticoloFattura(Ambiente& ambiente, const RichiestaArticoloFattura& richiesta,
                         std::int64_t& numDoc, LogContabile& log);

/// Erases what CreaArticoloFattura wrote for register, protocol and year, and its due dates when a
/// payment code is set. False with a warning when it isn't in the books.
bool EliminaContabFattura(Ambiente& ambiente, int anno, const std::string& riva, std::int64_t nProt,
                          const std::string& pagamento, LogContabile& log);

}  // namespace fenalto::vat
