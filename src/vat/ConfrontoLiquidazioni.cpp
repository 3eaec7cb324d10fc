#include "vat/ConfrontoLiquidazioni.h"

#include <algorithm>
#include <map>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto {

std::vector<RigaAffiancata> AffiancaLiquidazioni(const std::vector<RigaLiquidazione>& corrente,
                                                 const std::vector<RigaLiquidazione>& precedente) {
  std::vector<RigaLiquidazione> prima;
  std::copy_if(precedente.begin(), precedente.end(), std::back_inserter(prima),
               [](const RigaLiquidazione& riga) { return !riga.nota; });
  std::vector<RigaAffiancata> affiancate;
  auto fatte = prima.begin();
  const auto aggiungiFino = [&](auto fine) {
    for (; fatte != fine; ++fatte) affiancate.push_back({fatte->descrizione, {}, fatte->importo});
  };
  for (const auto& riga : corrente) {
    RigaAffiancata affiancata{riga.descrizione, riga.importo, {}, riga.nota};
    const auto trovata =
        riga.nota ? prima.end()
                  : std::find_if(fatte, prima.end(), [&riga](const RigaLiquidazione& altra) {
                      return UgualeTesto(altra.descrizione, riga.descrizione);
                    });
    if (trovata != prima.end()) {
      aggiungiFino(trovata);
      affiancata.precedente = trovata->importo;
      ++fatte;
    }
    affiancate.push_back(std::move(affiancata));
  }
  aggiungiFino(prima.end());
  return affiancate;
}

std::vector<IvaDelPeriodo> AndamentoIva(Ambiente& ambiente, const Liquidazione& corrente) {
  std::vector<IvaDelPeriodo> periodi;
  for (auto& periodo : PeriodiIva(ambiente, ambiente.Anno())) {
    if (!periodo.Annuale()) periodi.push_back({std::move(periodo), {}, {}, false});
  }
  const auto aggiungi = [&periodi](const std::string& cod, Importo segno, Importo iva) {
    const auto trovato = std::find_if(
        periodi.begin(), periodi.end(),
        [&cod](const IvaDelPeriodo& uno) { return UgualeTesto(uno.periodo.cod, cod); });
    if (trovato == periodi.end()) return;
    trovato->presente = true;
    if (segno > Importo{}) trovato->debito += iva;
    if (segno < Importo{}) trovato->credito += iva;
  };
  Rs righe = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT PERIODO, PIUMENO, TOTALEIVA FROM TotaliIva INNER JOIN TIPIregistriiva ON "
      "TotaliIva.Tipo = TIPIregistriiva.Cod WHERE " +
      Criterio("Anno", "=", ambiente.Anno()) + " AND " + Criterio("CodIva", "=", "") + " AND " +
      Criterio("DEFINITIVO", "=", true));
  for (; !righe.Eof(); righe.MoveNext()) {
    const std::string cod = NzStr(righe.Fields(0));
    if (!UgualeTesto(cod, corrente.periodo.cod)) {
      aggiungi(cod, righe.Fields(1).Importo(), righe.Fields(2).Importo());
    }
  }
  for (const auto& registro : corrente.registri) {
    aggiungi(corrente.periodo.cod, Importo::DaUnita(registro.segno), registro.iva);
  }
  return periodi;
}

std::string PeriodoDaLiquidare(Ambiente& ambiente) {
  std::string primo;
  for (const auto& periodo : PeriodiIva(ambiente, ambiente.Anno())) {
    if (periodo.Annuale()) continue;
    const bool liquidato = ambiente.Esiste(
        "tessarc", "ChiusureIva", {{"Anno", ambiente.Anno()}, {"MESETRIMESTRE", periodo.cod}});
    if (liquidato) {
      primo.clear();
    } else if (primo.empty()) {
      primo = periodo.cod;
    }
  }
  return primo;
}

}  // namespace fenalto
