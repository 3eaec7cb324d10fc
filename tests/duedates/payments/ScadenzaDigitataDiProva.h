// What deposits and unpaid receipts have in common in their tests: settings, and the due date
// written as a short text.
#pragma once

#include <string>

#include "duedates/payments/ScadenzaDigitata.h"
#include "duedates/payments/ScadenzeDiProva.h"

namespace fenalto::prova {

class ScadenzaDigitataDiProva : public ScadenzeDiProva {
 protected:
  /// Of the window with that number in its keys.
  void Imposta(const std::string& numero, const char* registrazione = "1") {
    for (const char* classe : {"C", "F"}) {
      const std::string coda = numero + classe;
      ambiente.ScriviImpostazione({}, "config", "CausalePagScad" + coda, "002");
      ambiente.ScriviImpostazione({}, "config", "ContropartitaPagScad" + coda, "100.010");
      ambiente.ScriviImpostazione({}, "config", "RegistrazioneContabilePagScad" + coda,
                                  registrazione);
    }
  }
  static void Digita(duedates::ScadenzaDigitata& caso, const char* campo, const Valore& valore) {
    caso.Dati().Scrivi(campo, valore);
    caso.DatoLasciato(campo);
  }
  /// "C:0001 31/03/2024 01 01 -100 2024/1 anticipo «Anticipo su fatt.da emettere»"
  std::string ScadenzaScritta(std::int64_t numero) {
    const duedates::Scadenza s = S(numero);
    const Rs r = Scadenzario().Recordset("select * from Scadenze where " +
                                         sql::Criterio("Numero", "=", numero));
    EXPECT_EQ(r.Fields("Importo").Importo(), EuroInLire(s.importoE, true));
    return s.cfp + ":" + s.conto + " " + s.dt.Testo() + " " + s.tipo + " " + s.stato + " " +
           s.importoE.Testo() + " " + std::to_string(s.anno) + "/" + std::to_string(s.articolo) +
           (s.anticipo ? " anticipo" : "") + " «" + s.descrizione + "»";
  }
  std::int64_t QuanteScadenze() {
    return Scadenzario().Singolo("select Count(*) from Scadenze").Intero();
  }
};

}  // namespace fenalto::prova
