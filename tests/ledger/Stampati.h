// Reports printed into memory or text files.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/reports/Sagoma.h"
#include "core/reports/Stampati.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {

/// A company whose books are written row by row, without the checks of a registration.
class DittaDaStampare : public DittaDiProva {
 protected:
  struct Riga {
    const char* cfp;
    const char* conto;
    Importo saldo;  ///< debit above zero
    const char* causale = "001";
    std::string descrizione = "prova";
  };
  void Articolo(int anno, std::int64_t numero, Data dt, const std::vector<Riga>& righe,
                const std::string& riva = "", int nProt = 0) {
    std::optional<Transazione> transazione;
    if (!ambiente.Basi().InTransazione()) transazione.emplace(ambiente.Basi());
    int posi = 0;
    for (const Riga& r : righe) {
      Tessarc().Inserisci("Movimenti", {{"Anno", anno},
                                        {"NumDoc", numero},
                                        {"Posi", posi += 100},
                                        {"Causale", r.causale},
                                        {"Descrizione", r.descrizione},
                                        {"CFP", r.cfp},
                                        {"Conto", r.conto},
                                        {"ImpoDare", r.saldo.Negativo() ? Importo() : r.saldo},
                                        {"ImpoAvere", r.saldo.Negativo() ? -r.saldo : Importo()}});
    }
    Tessarc().Inserisci(
        "Articoli",
        {{"Anno", anno}, {"NumDoc", numero}, {"Dt", dt}, {"Riva", riva}, {"NProt", nProt}});
    if (transazione) transazione->Conferma();
  }
  void Verso(Destinazione destinazione) {
    SceltaUscita scelta;
    scelta.destinazione = destinazione;
    dialoghi.ScegliaUscita(scelta);
  }

  FabbricaDiProva uscite;
};

}  // namespace fenalto::prova
