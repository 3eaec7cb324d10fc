// The page that the automatic functions of a year leave: category by category, a line an asset.
#pragma once

#include <optional>
#include <string>

#include "assets/TitoloAnno.h"
#include "core/reports/Rapporto.h"

namespace fenalto::assets {

/// A line of it.
struct LineaAmmortamento {
  std::int64_t nCesp = 0;
  std::string descrizione;
  std::string testo;
  std::optional<Importo> importo;
  std::string seguito = {};  ///< told on a line of its own
};

class StampaAmmortamento {
 public:
  StampaAmmortamento(Ambiente& ambiente, reports::FabbricaUscite& uscite, std::string documento,
                     TitoloAnno titolo);

  /// Asks for the output; false when it was given up.
  bool Apri(bool grafico, double xTar);
  void Categoria(const std::string& cod, const std::string& descrizione);
  void Linea(const LineaAmmortamento& linea);
  /// Ends with the total and what is told at the foot.
  bool Fine(const std::string& piede);

 private:
  void Testata();

  std::string documento_;
  TitoloAnno titolo_;
  reports::Tabella<LineaAmmortamento> tabella_;
  reports::Rapporto rapporto_;
  reports::Somme totale_;
};

}  // namespace fenalto::assets
