// The second half of a reverse-charge registration and what follows from it, for who writes it the
// first time and for who writes it again.
#pragma once

#include <map>
#include <string>

#include "vat/postings/GiroFornitore.h"
#include "vat/postings/RegistrazioniAutomatiche.h"

namespace fenalto::vat {

struct RigheIntra {
  Importo costo;  ///< taxable amount: what the supplier is owed
  std::int64_t posiParte = 0;
  /// VAT that can't be deducted, left on the accounts of the taxable rows.
  std::map<std::string, Importo> indetraibile;
};

/// Writes the rows of a registration on a register of type "04" on one of type "05", under
/// `numDoc`. The first owes the whole VAT; this one deducts what the code lets, and adds the rest
/// to the taxable rows.
/// Source: D.P.R. 633/1972, art. 17 and 19.
RigheIntra CopiaRigheIntra(Ambiente& ambiente, const ArticoloOrigine& origine,
                           const std::string& rivaIntra, std::int64_t numDoc);

/// What isn't deducted goes from the account of its row to that of the cost, as the cost does.
void ScriviGiroIndetraibile(Ambiente& ambiente, const GiroFornitore& costo,
                            const std::string& conto, Importo importo, LogContabile& log);

/// Description of the giro of the cost, by which it is found again.
std::string DescrizioneGiroIntra(const std::string& nFat, Data dtFat);

}  // namespace fenalto::vat
