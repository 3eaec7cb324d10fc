// The test company with due dates of every kind, and what a report told as short texts.
#pragma once

#include <string>
#include <vector>

#include "core/values/FormatoImporto.h"
#include "duedates/schedules/Scadenza.h"
#include "ledger/Stampati.h"

namespace fenalto::prova {

/// A due date to write; the number follows from the order.
struct DaScrivere {
  const char* cfp;
  const char* conto;
  Data dt;
  const char* importo;
  const char* stato = "00";
  const char* pagato = "0";
  std::int64_t nFat = 0;
  std::vector<Coppia> altri = {};
};

class ScadenzeDaStampare : public DittaDaStampare {
 protected:
  void Scrivi(const DaScrivere& d) {
    std::vector<Coppia> campi = {{"Numero", duedates::ProssimoNumeroScadenza(ambiente)},
                                 {"CFP", d.cfp},
                                 {"Conto", d.conto},
                                 {"Dt", d.dt},
                                 {"Tipo", "01"},
                                 {"Stato", d.stato},
                                 {"NFat", d.nFat},
                                 {"Descrizione", "scad." + std::to_string(d.nFat)}};
    for (const auto& altri :
         {duedates::CampiImporto(I(d.importo)), duedates::CampiPagato(I(d.pagato)), d.altri}) {
      campi.insert(campi.end(), altri.begin(), altri.end());
    }
    ambiente.ArchivioDi("scadenzario").Inserisci("Scadenze", campi);
  }

  /// Of two customers and a supplier: open, paid in part, paid, a deposit, a receipt at the bank.
  void ScriviTutte() {
    Scrivi({"C", "0001", G(31, 1, 2024), "100", "00", "0", 1, {{"Anno", 2024}, {"Articolo", 7}}});
    Scrivi({"C", "0001", G(15, 3, 2024), "200", "10", "50.25", 2});
    Scrivi({"C", "0001", G(20, 3, 2024), "60", "30", "60", 3, {{"DtPag", G(18, 3, 2024)}}});
    Scrivi({"C", "0001", G(10, 3, 2024), "-30", "00", "0", 0, {{"anticipo", true}}});
    Scrivi({"C", "0002", G(31, 3, 2024), "400", "20", "0", 4, {{"Tipo", "03"}}});
    Scrivi({"C", "0002", G(1, 1, 2025), "70", "01", "0", 5});
    Scrivi({"C", "0002", G(5, 1, 2023), "10", "30", "10", 6, {{"DtPag", G(5, 1, 2023)}}});
    Scrivi({"F", "0001", G(31, 1, 2024), "900", "00", "0", 8});
  }

  /// One a day from 01/01/2024 on.
  void ScriviMolte(const char* conto, int quante, const char* importo) {
    Transazione transazione(ambiente.Basi());
    for (int i = 0; i < quante; ++i) Scrivi({"C", conto, G(1, 1, 2024).PiuGiorni(i), importo});
    transazione.Conferma();
  }
};

}  // namespace fenalto::prova
