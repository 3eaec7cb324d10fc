// The test company with due dates to pay, and what a payment leaves behind as short texts.
#pragma once

#include <string>
#include <vector>

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "duedates/schedules/Scadenza.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {

class ScadenzeDiProva : public DittaDiProva {
 protected:
  Archivio& Scadenzario() { return ambiente.ArchivioDi("scadenzario"); }

  /// An open due date of 2024; its number.
  std::int64_t Nuova(const char* cfp, const char* conto, const char* importo, int nFat,
                     const char* pagato = "0") {
    const std::int64_t numero = duedates::ProssimoNumeroScadenza(ambiente);
    std::vector<Coppia> campi = {
        {"Numero", numero},     {"CFP", cfp},   {"Conto", conto},
        {"Dt", G(31, 3, 2024)}, {"Tipo", "01"}, {"Stato", duedates::kStatoScritta},
        {"Anno", 2024},         {"NFat", nFat}, {"DtFat", G(31, 1, 2024)}};
    for (const auto& altri : {duedates::CampiImporto(I(importo)), duedates::CampiPagato(I(pagato))})
      campi.insert(campi.end(), altri.begin(), altri.end());
    Scadenzario().Inserisci("Scadenze", campi);
    return numero;
  }
  duedates::Scadenza S(std::int64_t numero) {
    return duedates::LeggiScadenza(ambiente, numero).value();
  }

  /// "30 100 14/03/2024": state, paid, day of payment.
  std::string Pagata(std::int64_t numero) {
    const Rs r = Scadenzario().Recordset("select * from Scadenze where " +
                                         sql::Criterio("Numero", "=", numero));
    EXPECT_EQ(r.Fields("ImportoPagato").Importo(),
              EuroInLire(r.Fields("ImportoPagatoE").Importo(), true));
    return r.Fields("Stato").Testo() + " " + r.Fields("ImportoPagatoE").Importo().Testo() + " " +
           r.Fields("DtPag").Data().Testo();
  }
  /// "P:100.010 C:0001 21 14/03/2024"
  std::string TestaDi(std::int64_t numDoc) {
    const Rs r = Tessarc().Recordset("select * from Articoli where Anno=2024 and " +
                                     sql::Criterio("NumDoc", "=", numDoc));
    if (r.Eof()) return "manca";
    return r.Fields("CFP").Testo() + ":" + r.Fields("Conto").Testo() + " " +
           r.Fields("CfpA").Testo() + ":" + r.Fields("ContoA").Testo() + " " +
           r.Fields("CREATOINAUTOMATICO").Testo() + " " + r.Fields("Dt").Data().Testo();
  }
  /// "100 002 C:0001 0/100 P:100.010 «incasso FT. 5»"; the two sides have to be even.
  std::vector<std::string> RigheDi(std::int64_t numDoc) {
    std::vector<std::string> righe;
    Importo sbilancio;
    Rs r = Tessarc().Recordset("select * from Movimenti where Anno=2024 and " +
                               sql::Criterio("NumDoc", "=", numDoc) + " order by Posi");
    for (; !r.Eof(); r.MoveNext()) {
      const auto testo = [&r](const char* campo) { return r.Fields(campo).Testo(); };
      sbilancio += r.Fields("ImpoDare").Importo() - r.Fields("ImpoAvere").Importo();
      EXPECT_EQ(r.Fields("TIPORIGA").Intero(), 0);
      righe.push_back(testo("Posi") + " " + testo("Causale") + " " + testo("CFP") + ":" +
                      testo("Conto") + " " + testo("ImpoDare") + "/" + testo("ImpoAvere") + " " +
                      testo("CFPControp") + ":" + testo("ContoControp") + " «" +
                      testo("Descrizione") + "»");
    }
    EXPECT_EQ(sbilancio, Importo());
    return righe;
  }
  std::string Tutto() const { return Contenuto() + Contenuto("scadenzario"); }
};

}  // namespace fenalto::prova
