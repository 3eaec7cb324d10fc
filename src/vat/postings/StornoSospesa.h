// The storno of a deferred invoice: when it is collected its VAT passes from the account that it
// was posted on to the one of the register of collected invoices, if that is another.
//
// Nothing here asks, tells or opens a transaction: the caller holds the numbering lock of
// "ARTICOLI" and the transaction.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/session/Ambiente.h"
#include "vat/postings/RegistrazioniAutomatiche.h"

namespace fenalto::vat {

/// A stored deferred invoice, with what its storno needs.
struct SospesaStornabile {
  ArticoloOrigine articolo;
  std::int64_t id = 0;
  Data dt;
  Data dtFat;
  std::string nFat;
  std::string riva;
  std::int64_t nProt = 0;
  bool acquisto = false;
  Data incasso;          ///< null while it is open
  std::string contoIva;  ///< the account its VAT was posted on
  std::string causaleIva;
  Importo iva;                 ///< on that account, debit above zero
  std::string rivaIncassate;   ///< register of collected invoices; empty when there is none
  std::string contoIncassate;  ///< its account
  /// "6/1 del 15/03/2024"
  [[nodiscard]] std::string Nome() const;
  /// Whether the firm keeps deferred VAT on an account of its own.
  [[nodiscard]] bool ContoAParte() const;
};

/// Nothing when it isn't there or isn't deferred.
std::optional<SospesaStornabile> LeggiSospesa(Ambiente& ambiente, const ArticoloOrigine& articolo);

/// Why a day of collection may not be changed from `prima` to `dopo` (either may be null): one of
/// them lies in a period that is settled. Empty when it may.
std::string IncassoInPeriodoChiuso(Ambiente& ambiente, Data prima, Data dopo);

/// The storno that the invoice has as it is stored now.
std::optional<ArticoloOrigine> TrovaStorno(Ambiente& ambiente, const SospesaStornabile& sospesa);
/// Whether a registration of that day is on the printed journal.
bool SulGiornale(Ambiente& ambiente, Data data);
void EliminaStorno(Ambiente& ambiente, const ArticoloOrigine& storno);
/// Writes the storno on the day of collection; its number, 0 when there is nothing to be moved.
std::int64_t ScriviStorno(Ambiente& ambiente, const SospesaStornabile& sospesa);

/// For who changes or erases a whole invoice. Before its rows are written: takes its storno off;
/// false, with a notice, when the storno stands on the printed journal and so stays as it is.
bool LevaStornoSospesa(Ambiente& ambiente, const ArticoloOrigine& articolo, LogContabile& log);
/// After its rows are written: the storno of a collected one.
void RimettiStornoSospesa(Ambiente& ambiente, const ArticoloOrigine& articolo, LogContabile& log);

}  // namespace fenalto::vat
