#include "documents/totals/TotaliDocumento.h"

#include "core/values/Aritmetica.h"

namespace fenalto::documents {
namespace {

GruppoTassato Tassato(const GruppoIva& gruppo, const RegolaTotali& regola) {
  GruppoTassato fatto{gruppo, {}, {}, {}};
  if (regola.prezziIvati) {
    fatto.imponibile = ScorporaImponibile(gruppo.importo, gruppo.perc);
    fatto.iva = gruppo.importo - fatto.imponibile;
    return fatto;
  }
  fatto.imponibile = ApplicaScontoCassa(gruppo.importo, regola.scontoCassa, regola.euro);
  fatto.scontoCassa = gruppo.importo - fatto.imponibile;
  fatto.iva = CalcolaIva(fatto.imponibile, gruppo.perc, regola.euro);
  return fatto;
}

}  // namespace

TotaliDocumento CalcolaTotali(std::span<const GruppoIva> gruppi, const RegolaTotali& regola) {
  TotaliDocumento totali;
  totali.gruppi.reserve(gruppi.size());
  for (const GruppoIva& gruppo : gruppi) {
    totali.gruppi.push_back(Tassato(gruppo, regola));
    totali.totImponibile += totali.gruppi.back().imponibile;
    totali.totIva += totali.gruppi.back().iva;
  }
  totali.totFat = totali.totImponibile + totali.totIva;
  return totali;
}

}  // namespace fenalto::documents
