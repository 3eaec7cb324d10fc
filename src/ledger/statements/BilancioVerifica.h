// Trial balance, statements and the comparison of two periods: three walks of the chart.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/reports/Foglio.h"
#include "core/reports/SceltaRifiutata.h"
#include "core/reports/Uscita.h"
#include "core/session/Ambiente.h"

namespace fenalto::ledger {

/// What the user chose on the form.
struct SceltaBilancio {
  int anno = 0;
  bool noAnno = false;  ///< dates alone, over all years
  Data daDt;
  Data aaDt;
  std::string daMastro;
  std::string aaMastro;
  bool soloMastri = false;
  bool stampoCliFor = false;
  bool escludoSaldo0 = false;
  bool escludoNonMovimentati = false;
  std::string escludoCausale;
  std::string intestaz;
  bool stGrafico = false;
  double xTar = 0;  ///< millimetres
  // Period B of the comparison.
  int annoPrec = 0;
  Data daDtAP;
  Data aaDtAP;
};

/// Costs and revenues of one month of each period, for the chart of the comparison.
struct MeseConfronto {
  int mese = 0;
  Importo costiA;
  Importo ricaviA;
  Importo costiB;
  Importo ricaviB;
};

class BilancioVerifica : public reports::SceltaRifiutata {
 public:
  BilancioVerifica(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), uscite_(uscite) {}

  /// Dates of the year's first and last registration, all masters.
  [[nodiscard]] SceltaBilancio Proposta();
  /// Period B as the same days one year before period A.
  [[nodiscard]] static SceltaBilancio PeriodoPrecedente(SceltaBilancio scelta);
  /// What is wrong with a choice (dates reversed, masters reversed, a causal left out that doesn't
  /// exist), with its field.
  [[nodiscard]] std::optional<Rifiuto> Controlla(const SceltaBilancio& scelta, bool confronto);

  // Each asks for the output and prints; false when it was cancelled or stopped (and told).
  bool StampaVerifica(const SceltaBilancio& scelta);
  bool StampaProspetti(const SceltaBilancio& scelta);
  bool StampaConfronto(const SceltaBilancio& scelta);
  /// The same walks as sheets.
  [[nodiscard]] reports::Foglio FoglioVerifica(const SceltaBilancio& scelta);
  [[nodiscard]] reports::Foglio FoglioConfronto(const SceltaBilancio& scelta);
  /// Twelve months, empty amounts where nothing was written; none when the user stopped the
  /// reading.
  [[nodiscard]] std::vector<MeseConfronto> MesiConfronto(const SceltaBilancio& scelta);

  /// Tells what is wrong with a choice; false then.
  bool Pronto(const SceltaBilancio& scelta, bool confronto);

 private:
  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
};

}  // namespace fenalto::ledger
