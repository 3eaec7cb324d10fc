// The register of assets at the end of a year, or their cards: printed, or as a sheet.
#pragma once

#include <optional>
#include <string>

#include "assets/Cespite.h"
#include "core/reports/Foglio.h"
#include "core/reports/SceltaRifiutata.h"
#include "core/reports/Uscita.h"

namespace fenalto::assets {

enum class OrdineCespiti { Numero, DataInFunzione, Codice, Descrizione };

struct SceltaRegistro {
  int finoAllAnno = 0;
  IntervalloCategorie categorie;
  bool noAmmCompl = false;  ///< leaves those out that are depreciated as a whole at the year's end
  bool noDismesso = false;  ///< and those disposed of by then
  int soloAnnoEntrInFunz = 0;
  bool schede = false;  ///< the card of each, year by year
  OrdineCespiti ordine = OrdineCespiti::Numero;
  bool stGrafico = false;
  double xTar = 0;
};

class RegistroCespiti : public reports::SceltaRifiutata {
 public:
  RegistroCespiti(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), uscite_(uscite) {}

  /// Prints; false when the choice is wrong, nothing was found (both told), or it was cancelled.
  bool Stampa(const SceltaRegistro& scelta);
  /// The same rows and totals; without columns when there is nothing to show (told) or it was
  /// cancelled.
  reports::Foglio Foglio(const SceltaRegistro& scelta);

 private:
  std::int64_t Pronti(const SceltaRegistro& scelta);

  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
};

/// An asset as the register shows it at the end of a year.
struct VoceRegistro {
  Cespite cespite;
  AnnoCespite situazione;
  int ultimoAnno = 0;
  bool completato = false;
  int annoVendita = 0;
  Importo vendita = {};
  Importo plusvalenza = {};
  std::string mancano = {};  ///< years without quota; empty for none
};
/// `righe` are all of the asset's.
VoceRegistro VoceAl(const Cespite& cespite, std::span<const MovimentoCespite> righe, int anno);

/// Goes through the assets that a register shows; `voce` returns false to stop. False when it did.
bool ScorriRegistro(
    Ambiente& ambiente, const SceltaRegistro& scelta,
    const std::function<bool(const VoceRegistro&, std::span<const MovimentoCespite>)>& voce);

}  // namespace fenalto::assets
