// The line that every print of assets has under its title: what, of which year, which categories.
#pragma once

#include <string>

#include "assets/Cespite.h"
#include "core/reports/Rapporto.h"

namespace fenalto::assets {

struct TitoloAnno {
  std::string cosa;
  int anno = 0;
  IntervalloCategorie categorie;

  [[nodiscard]] std::string Testo() const {
    return cosa + " ANNO " + std::to_string(anno) + " DA CATEGORIA " + categorie.da + " A " +
           categorie.a;
  }
  /// The line of the text form.
  void Stampa(reports::Rapporto& rapporto) const {
    rapporto.Riga({" " + cosa + " ANNO ####,    DA CATEGORIA $$$$$$$$ A $$$$$$$$", {}, true},
                  {anno, categorie.da, categorie.a});
  }
};

}  // namespace fenalto::assets
