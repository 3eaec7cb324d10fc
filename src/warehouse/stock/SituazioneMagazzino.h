// The stock of the archive, product by product, as the warehouse report shows it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/session/Rifiuto.h"
#include "warehouse/products/Prodotto.h"
#include "warehouse/stock/Costi.h"
#include "warehouse/stock/Esistenza.h"
#include "warehouse/stock/SceltaProdotti.h"

namespace fenalto::warehouse {

/// What a supplier asks for a product, net of discounts.
struct CostoFornitore {
  std::string fornitore;
  Importo costo;
};

/// A product of the report.
struct RigaMagazzino {
  Prodotto prodotto;
  Esistenza esistenza;
  Costi costi;
  std::vector<CostoFornitore> fornitori;  ///< read when asked for
  Importo valoreDigitato;
  Importo valoreUltimo;
  Importo valoreMedio;
  /// Last cost and `Ricarico` percent.
  [[nodiscard]] Importo PrezzoRicaricato() const;
};

struct SceltaMagazzino {
  SceltaProdotti prodotti;
  std::string soloMag;
  Data finoAl;
  bool perDescrizione = false;
  bool soloSottoScorta = false;
  bool soloEsistenti = false;  ///< stock other than zero
  bool soloNegativi = false;   ///< stock below zero
  Data fermiDal;               ///< slow movers: no unload from that day on
  int mesiFermi = 0;           ///< the same, in the last months
  bool stampoSoloDiversi0 = false;
  std::vector<std::string> colonne;  ///< names of ColonneMagazzino
  bool stGrafico = false;
  double xTar = 0;

  [[nodiscard]] FiltroEsistenza Filtro() const { return {soloMag, finoAl}; }
};

/// Why the choice can't be shown.
std::optional<Rifiuto> DifettoScelta(const SceltaMagazzino& scelta);
/// Heading's words for what is chosen beside the range.
std::string ScrittaMagazzino(const SceltaMagazzino& scelta);

/// Products of the archive that the choice selects, before the filters that look at figures.
std::int64_t ContaProdotti(Ambiente& ambiente, const SceltaProdotti& scelta);

/// Goes through the products chosen, by code or by description; `riga` returns false to stop.
/// False when it did. By code figures come in series; by description each product is asked for
/// alone, which is slower and as small. `conFornitori` reads what suppliers ask; `visto` is called
/// for each product looked at, shown or not, and returns false to stop.
bool ScorriMagazzino(Ambiente& ambiente, const SceltaMagazzino& scelta, bool conFornitori,
                     const std::function<bool()>& visto,
                     const std::function<bool(const RigaMagazzino&)>& riga);

}  // namespace fenalto::warehouse
