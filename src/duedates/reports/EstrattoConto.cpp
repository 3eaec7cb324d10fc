#include "duedates/reports/EstrattoConto.h"

#include "duedates/reports/LetteraEstratto.h"

namespace fenalto::duedates {

SceltaEstrattoConto EstrattoConto::Proposta() {
  SceltaEstrattoConto scelta;
  scelta.alla = ambiente_.Ora().Oggi();
  return scelta;
}

bool EstrattoConto::Stampa(const SceltaEstrattoConto& scelta) {
  if (const auto difetto = DifettoScelta(scelta.scadenze)) {
    ambiente_.Dialogo().Messaggio(*difetto, Icona::Avviso);
    return false;
  }
  if (scelta.alla.Nulla()) {
    ambiente_.Dialogo().Messaggio("manca la data dell'estratto conto", Icona::Avviso);
    return false;
  }
  // The paid ones alone make no letter.
  SceltaScadenze aperte = scelta.scadenze;
  aperte.anchePagate = false;
  if (ContaScadenze(ambiente_, aperte) == 0) {
    ambiente_.Dialogo().Messaggio("nessun estratto conto da stampare: " + ScrittaScelta(aperte) +
                                  " di " + NomeClasse(aperte) + " non ce ne sono");
    return false;
  }
  return LetteraEstratto(ambiente_, uscite_, scelta)
      .Esegui(ContaScadenze(ambiente_, scelta.scadenze));
}

}  // namespace fenalto::duedates
