// Totals of the VAT registers over a period: what is printed, stored and settled.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/values/Esito.h"
#include "vat/postings/PeriodoIva.h"

namespace fenalto::vat {

/// Protocols of a register that a run takes.
struct IntervalloRegistro {
  std::string riva;
  std::string tipo;
  std::string descrizione;
  std::int64_t daNProt = 1;
  std::int64_t aaNProt = 0;
  /// Types 08 and 08A: deferred invoices collected in the period stand on it instead of a range.
  bool daIncassi = false;
  [[nodiscard]] bool Vuoto() const { return !daIncassi && aaNProt < daNProt; }
};

/// Registers of purchases for resale that shares are taken from.
struct Ventilazione {
  std::string riva;
  std::int64_t aaNProt = 0;
  std::string riva1;
  std::int64_t aaNProt1 = 0;
};

/// A row of `TotaliIva`: a VAT code on a register.
struct TotaleCodice {
  std::string codIva;
  std::string descrizione;
  Importo perc;
  Importo imponibile;
  Importo iva;
  Importo ivaInd;
};

/// A line of the ventilation page.
struct QuotaVentilazione {
  std::string codIva;
  Importo perc;
  Importo acquisti;        ///< taxable plus VAT
  std::int64_t quota = 0;  ///< of the purchases total, in hundred-thousandths of a percent
  Importo corrispettivi;   ///< part of the receipts
};

struct TotaleRegistro {
  IntervalloRegistro intervallo;
  int segno = 0;  ///< PIUMENO of its type
  std::string conto;
  std::vector<TotaleCodice> codici;      ///< without ZCOR
  std::vector<TotaleCodice> differiti;   ///< of deferred invoices among them
  std::vector<QuotaVentilazione> quote;  ///< of a type 07 register
  Importo corrispettiviDaVentilare;
  Importo acquistiVentilazione;
  /// VAT found by splitting gross receipts (types 02 and 07): what the giro of receipts posts.
  Importo ivaScorporata;
  /// On a register of type 04 all of it, whatever its rows call not deductible: reverse charge owes
  /// the whole VAT.
  [[nodiscard]] Importo Iva() const;
  [[nodiscard]] Importo IvaDifferita() const;
};

/// Totals of all registers, in order of code. Rows of a type 02 register without typed VAT are
/// split per code by ScorporaImponibile; a row whose VAT was typed is taken as it stands. Receipts
/// to be ventilated are split by the shares of the purchases, each part rounded to cents to the
/// nearest, the last code taking what remains. The error tells what a register lacks.
Esito<std::vector<TotaleRegistro>> CalcolaTotaliRegistri(
    Ambiente& ambiente, const PeriodoIva& periodo,
    const std::vector<IntervalloRegistro>& intervalli, const Ventilazione& ventilazione);

}  // namespace fenalto::vat
