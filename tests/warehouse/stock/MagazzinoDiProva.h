// The test company with products, warehouses and types, and the shortest way to write rows of
// stock.
#pragma once

#include <string>

#include "core/store/TransazioneComune.h"
#include "ledger/Stampati.h"
#include "warehouse/stock/Costi.h"
#include "warehouse/stock/Esistenza.h"

namespace fenalto::prova {

/// A row of a document, as tests write it.
struct RigaMag {
  const char* prodotto = "P1";
  const char* cs = "C";
  const char* quantita = "1";
  const char* prezzo = "0";
  Data dt = G(10, 2, 2024);
  const char* mag = "";
  const char* tipo = "XC";
  std::int64_t numero = 1;
  const char* causale = "XC";
  const char* sc1 = "0";
  const char* cfp = "F";
  std::int64_t ordine = 0;
  std::int64_t commessa = 0;
  int anno = 0;  ///< 0: that of the day
};

/// Products "P1", "P2", warehouses "01" and "02", types "XC" (load), "XS" (unload) and "XN" (load
/// that doesn't count for costs); the model's products, if any, are gone.
class MagazzinoDiProva : public DittaDaStampare {
 protected:
  MagazzinoDiProva() {
    TransazioneComune transazione(ambiente.Basi(), Transazione::Ambito::Tessarc);
    for (const char* tabella : {"CodiciRiga", "Magazzini", "FattureCli", "FattureCli_r"}) {
      Tessarc().Esegui(std::string("delete * from ") + tabella);
    }
    Metti(Tessarc(), "CodiciRiga", "Cod", "P1", "Descrizione", "Vite 4x30", "um", "NR");
    Metti(Tessarc(), "CodiciRiga", "Cod", "P2", "Descrizione", "Dado 4", "um", "NR");
    Metti(Tessarc(), "Magazzini", "Cod", "01", "Descrizione", "Sede");
    Metti(Tessarc(), "Magazzini", "Cod", "02", "Descrizione", "Deposito");
    Metti(Tessarc(), "CausaliMag", "Cod", "XC", "Descrizione", "Carico di prova", "CS", "C");
    Metti(Tessarc(), "CausaliMag", "Cod", "XS", "Descrizione", "Scarico di prova", "CS", "S");
    Metti(Tessarc(), "TipiFattureCli", "Cod", "XC", "TipoStampa", "MOVIMENTO", "CFP", "F",
          "CausaleMag", "XC");
    Metti(Tessarc(), "TipiFattureCli", "Cod", "XN", "TipoStampa", "MOVIMENTO", "CFP", "C",
          "CausaleMag", "XC", "NoCosti", true);
    Metti(Tessarc(), "TipiFattureCli", "Cod", "XS", "TipoStampa", "MOVIMENTO", "CFP", "C",
          "CausaleMag", "XS");
    transazione.Conferma();
  }

  void Riga(const RigaMag& r) {
    Metti(Tessarc(), "FattureCli_r", "TipoDoc", r.tipo, "Anno", r.anno != 0 ? r.anno : r.dt.Anno(),
          "NumDoc", r.numero, "Posi", ++posi_, "CodiceRiga", r.prodotto, "Quantita", I(r.quantita),
          "Prezzo", I(r.prezzo), "Sc1", I(r.sc1), "Dt", r.dt, "CS", r.cs, "Mag", r.mag,
          "CausaleMag", r.causale, "CFP", r.cfp, "Ordine", r.ordine, "PosiOrdine",
          r.ordine == 0 ? 0 : 1, "Commessa", r.commessa, "PosiCommessa", r.commessa == 0 ? 0 : 1);
  }

  std::int64_t posi_ = 0;
};

}  // namespace fenalto::prova
