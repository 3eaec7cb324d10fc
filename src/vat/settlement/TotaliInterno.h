// Sums of the VAT registers by code, as the books have them, and the split of the receipts to be
// ventilated.
#pragma once

#include <string>
#include <vector>

#include "vat/codes/CodiciIva.h"
#include "vat/settlement/TotaliRegistri.h"

namespace fenalto::vat {

/// A VAT code on a register, deferred registrations apart.
struct GruppoIva {
  std::string codIva;
  bool ep = false;
  Importo imponibile;  ///< `lordo` included
  Importo iva;
  Importo ivaInd;
  Importo lordo;  ///< of the rows that have no VAT
  [[nodiscard]] bool Vuoto() const { return imponibile.Zero() && iva.Zero() && ivaInd.Zero(); }
};

/// Condition of a range on `MovimentiIva` or `ZarticoliProtocollati`, whose columns begin with
/// `prefisso`.
std::string CondizioneIntervallo(const IntervalloRegistro& intervallo, int anno,
                                 const std::string& prefisso = "");
/// Condition on `ZarticoliSospese AS Articoli` of the deferred invoices collected in the period, of
/// the registers that a register of type 08 or 08A collects from.
std::string CondizioneIncassati(Ambiente& ambiente, const std::string& tipo,
                                const PeriodoIva& periodo);

/// By code, in order, from one pass over the rows of `MovimentiIva` that meet a condition.
std::vector<GruppoIva> LeggiGruppi(Ambiente& ambiente, const std::string& condizione);

/// What is wrong with the code ZCOR, or with its absence, among the sums of a register; empty when
/// nothing is.
std::string ErroreVentilazione(const std::string& tipo, const std::vector<GruppoIva>& gruppi);

/// Purchases by code of the registers for resale; the error tells what is missing.
Esito<std::vector<QuotaVentilazione>> LeggiAcquisti(Ambiente& ambiente, int anno,
                                                    const Ventilazione& ventilazione);

/// Splits `corrispettiviDaVentilare` of a register by the shares of the purchases and gives it the
/// totals by code.
void Ventila(TotaleRegistro& totale, std::vector<QuotaVentilazione> quote);

/// Description and rate of a VAT code.
void CompletaCodice(Ambiente& ambiente, TotaleCodice& totale);

}  // namespace fenalto::vat
