// What the printed forms and the sheets of the chart share.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/reports/Rapporto.h"
#include "ledger/statements/BilancioVerifica.h"
#include "ledger/statements/VisitaConti.h"

namespace fenalto::ledger {

/// The walk of a choice: of one letter ("P", "E") or of all masters; of both periods when
/// `confronto`.
RichiestaVisita RichiestaDi(const SceltaBilancio& scelta, const std::string& lettera,
                            bool confronto);

/// Whether the choice leaves these balances out. An account with only an opening has moved.
bool Escluso(const SceltaBilancio& scelta, const Saldi& saldi);

/// Whether the account has a line: its own balances, or those of a party printed under it.
bool ContoStampato(const SceltaBilancio& scelta, const ContoVisitato& conto);

/// What period A has more than period B, on the side of B (of A when B is zero): above zero when a
/// cost or a revenue grew since. `percento` is of B, Null when B is zero.
struct Scostamento {
  Importo differenza;
  Valore percento;
};
Scostamento Scosta(Importo a, Importo b);

/// "dal 01/01/2024 al 31/12/2024"
std::string ScrittaPeriodo(Data da, Data a);
/// "anno 2024", or "tutti gli anni".
std::string ScrittaAnno(const SceltaBilancio& scelta);
/// "da mastro 100 a 980", with what else narrows the report.
std::string ScrittaScelte(const SceltaBilancio& scelta);
/// Year, period and choices of a report of one period.
std::string ScrittaTutto(const SceltaBilancio& scelta);

/// The heading's beginning of a report: company, title and a further line.
void TestataBilancio(reports::Rapporto& rapporto, const SceltaBilancio& scelta,
                     const std::string& titolo, const std::string& sotto);
/// What a report of a choice asks of its frame.
reports::Cornice CorniceBilancio(const SceltaBilancio& scelta, const std::string& rapporto,
                                 const std::string& titolo, const std::string& modello);
/// The lines above a sheet.
std::vector<std::vector<Valore>> PremessaBilancio(Ambiente& ambiente,
                                                  const reports::Rapporto& rapporto,
                                                  const SceltaBilancio& scelta,
                                                  const std::string& titolo);

/// An account with a line, or a party printed under it.
struct VoceBilancio {
  const std::string& cod;
  const std::string& cfp;
  std::string descrizione;  ///< of a party indented on paper
  const Saldi& saldi;
  bool parte = false;
  [[nodiscard]] fenalto::Rinvio Rinvio() const { return AlConto(cfp, cod); }
};
/// Hands out the lines of a master.
void ScorriVoci(const SceltaBilancio& scelta, const MastroVisitato& mastro,
                const reports::Rapporto& rapporto,
                const std::function<void(const VoceBilancio&)>& voce);
/// The letter of a master in a sheet, "p" or "e".
std::string LetteraDi(const MastroVisitato& mastro);

}  // namespace fenalto::ledger
