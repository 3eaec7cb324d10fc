// The lines of an asset's card, as window, page and sheet show them: each row, what it moves of the
// fund, the totals of its year, the gain on the sale, what lacks.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "assets/SchedaCespite.h"
#include "core/session/Ambiente.h"

namespace fenalto::assets {

enum class GenereLinea {
  Riga,         ///< causal, reference, amount
  Nota,         ///< text alone
  Ulteriore,    ///< a text and an amount under the row
  Totali,       ///< the year's five figures
  Plusvalenza,  ///< gain or loss of the sale
  Errore
};

struct LineaScheda {
  GenereLinea genere = GenereLinea::Riga;
  int anno = 0;
  std::string causale = {};  ///< described; of totals "totali anno 2024"
  std::string testo = {};    ///< reference or note
  std::optional<Importo> importo = {};
  std::optional<AnnoCespite> totali = {};
};

/// `righe` are those that the card was made of; `descrivi` gives a causal's description.
std::vector<LineaScheda> LineeDi(const SchedaCespite& scheda,
                                 std::span<const MovimentoCespite> righe,
                                 const std::function<std::string(const std::string&)>& descrivi);

/// Descriptions of the causals, read once.
std::function<std::string(const std::string&)> DescrizioniCausali(Ambiente& ambiente);

}  // namespace fenalto::assets
