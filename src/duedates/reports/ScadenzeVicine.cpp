#include "duedates/reports/ScadenzeVicine.h"

#include "core/sql/Criterio.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::duedates {
namespace {

GruppoScadenze SommaAperte(Ambiente& ambiente, const std::string& cfp,
                           const std::string& condizione) {
  const Rs somma = ambiente.ArchivioDi("scadenzario")
                       .Recordset(
                           "SELECT Count(*) AS quante, Sum(ImportoE) AS importo, "
                           "Sum(ImportoPagatoE) AS pagato FROM SCADENZE WHERE " +
                           sql::Criterio("SCADENZE.CFP", "=", cfp) + " AND " + condizione +
                           " AND " + CondizioneAperta());
  GruppoScadenze gruppo;
  gruppo.quante = Nz(somma.Fields(0)).Intero();
  gruppo.importo = Nz(somma.Fields(1)).Importo() - Nz(somma.Fields(2)).Importo();
  return gruppo;
}

}  // namespace

ScadenzeVicine LeggiScadenzeVicine(Ambiente& ambiente, const std::string& cfp, Data oggi) {
  ScadenzeVicine vicine;
  vicine.finoA = oggi.PiuGiorni(kGiorniVicini - 1);
  vicine.scadute = SommaAperte(ambiente, cfp, sql::Criterio("SCADENZE.Dt", "<", oggi));
  vicine.vicine = SommaAperte(ambiente, cfp,
                              sql::Criterio("SCADENZE.Dt", ">=", oggi) + " AND " +
                                  sql::Criterio("SCADENZE.Dt", "<=", vicine.finoA));
  return vicine;
}

}  // namespace fenalto::duedates
