// The test company with two categories of assets and the shortest way to type their cards.
#pragma once

#include <string>
#include <vector>

#include "assets/AmmortamentoAutomatico.h"
#include "assets/Cespiti.h"
#include "assets/RegistroCespiti.h"
#include "core/store/TransazioneComune.h"
#include "ledger/Stampati.h"

namespace fenalto::prova {

/// A row as tests write it.
inline assets::MovimentoCespite Mov(int anno, const char* cau, const char* importo,
                                    const char* storno = "0") {
  assets::MovimentoCespite riga{0, anno, cau};
  riga.importo = I(importo);
  riga.storno = I(storno);
  return riga;
}

/// Categories "X1" (20, first year 10, accounts 570.004 and 220.005), "X2" (33.33 both, the same
/// accounts) and "X3" (no rates, no accounts); the model's are gone.
class CespitiDiProva : public DittaDaStampare {
 protected:
  CespitiDiProva() {
    Transazione transazione(ambiente.Basi());
    Tessarc().Esegui("delete * from CategorieCespiti");
    Metti(Tessarc(), "CategorieCespiti", "Cod", "X1", "DescrCat", "Attrezzi", "Perc", I("20"),
          "Perc1", I("10"), "ContoAmm", "570.004", "ContoFondo", "220.005");
    Metti(Tessarc(), "CategorieCespiti", "Cod", "X2", "DescrCat", "Terzi", "Perc", I("33.33"),
          "Perc1", I("33.33"), "ContoAmm", "570.004", "ContoFondo", "220.005");
    Metti(Tessarc(), "CategorieCespiti", "Cod", "X3", "DescrCat", "Senza");
    transazione.Conferma();
  }

  /// Writes an asset with its rows, without the checks of its card.
  void Scrivi(std::int64_t n, const char* cat, Data dal,
              const std::vector<assets::MovimentoCespite>& righe, const char* altri = "") {
    TransazioneComune transazione(ambiente.Basi(), Transazione::Ambito::Tessarc);
    const assets::SchedaCespite scheda = assets::CalcolaScheda(righe);
    Metti(Tessarc(), "Cespiti", "NCesp", n, "Cat", cat, "Dal", dal, "Descrizione",
          "bene " + std::to_string(n) + altri, "AmmCompl", scheda.Completato(), "Dismesso",
          scheda.Dismesso());
    std::int64_t posi = 0;
    for (const auto& r : righe) {
      Metti(Tessarc(), "MovCesp_r", "NCesp", n, "Posi", ++posi, "Anno", r.anno, "Cau", r.cau,
            "Importo", r.importo, "StornoFondoDismParz", r.storno, "Cat", cat);
    }
    transazione.Conferma();
  }

  /// Types a row into the open card; what stopped it is in Messaggi().
  static bool Riga(assets::Cespiti& card, const char* cau, int anno, const char* importo,
                   const char* storno = "0", std::string* campo = nullptr) {
    if (!card.PNuovaRiga()) return false;
    card.Riga().Scrivi("Cau", cau);
    card.Riga().Scrivi("Anno", anno);
    card.Riga().Scrivi("Importo", I(importo));
    card.Riga().Scrivi("StornoFondoDismParz", I(storno));
    return card.ConfermaRiga(campo);
  }

  /// Rows of an asset: "anno cau importo estremi|note".
  std::vector<std::string> RigheDi(std::int64_t n) {
    std::vector<std::string> righe;
    for (const auto& r : assets::LeggiMovimenti(ambiente, n)) {
      righe.push_back(std::to_string(r.anno) + " " + r.cau + " " + r.importo.Testo() + " " +
                      r.estremi + "|" + r.note);
    }
    return righe;
  }
  bool Campo(std::int64_t n, const char* campo) {
    return Tessarc()
        .Singolo("select " + std::string(campo) + " from Cespiti where NCesp=" + std::to_string(n))
        .Booleano();
  }
};

}  // namespace fenalto::prova
