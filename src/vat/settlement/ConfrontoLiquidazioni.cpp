#include "vat/settlement/ConfrontoLiquidazioni.h"

#include <algorithm>
#include <map>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::vat {

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

namespace {

bool Liquidato(Ambiente& ambiente, const std::string& periodo) {
  return ambiente.Esiste("tessarc", "ChiusureIva",
                         {{"Anno", ambiente.Anno()}, {"MESETRIMESTRE", periodo}});
}

void Aggiungi(IvaDelPeriodo& periodo, Importo segno, Importo iva) {
  if (segno > Importo()) periodo.debito += iva;
  if (segno < Importo()) periodo.credito += iva;
}

/// Takes the period as it was stored. A deferred invoice is due when it is collected: on its own
/// register it counts on neither side.
void LeggiMemorizzato(Ambiente& ambiente, IvaDelPeriodo& periodo) {
  const auto somma = [&](const std::string& tabella, const std::string& campo,
                         const std::string& condizione, bool toglie) {
    Rs righe = ambiente.ArchivioDi("tessarc").Recordset(
        "SELECT PIUMENO, " + campo + " FROM " + tabella + " INNER JOIN TIPIregistriiva ON " +
        tabella + ".Tipo = TIPIregistriiva.Cod WHERE " +
        sql::Criterio("Anno", "=", ambiente.Anno()) + " AND " +
        sql::Criterio("PERIODO", "=", periodo.periodo.cod) + condizione);
    for (; !righe.Eof(); righe.MoveNext()) {
      const Importo iva = righe.Fields(1).Importo();
      Aggiungi(periodo, righe.Fields(0).Importo(), toglie ? Importo() - iva : iva);
    }
  };
  somma("TotaliIva", "TOTALEIVA", " AND " + sql::Criterio("CodIva", "=", ""), false);
  somma("TotaliIvaEP", "Iva", "", true);
}

}  // namespace

std::vector<IvaDelPeriodo> AndamentoIva(Ambiente& ambiente, const Liquidazione& corrente) {
  std::vector<IvaDelPeriodo> periodi;
  for (const auto& periodo : PeriodiIva(ambiente, ambiente.Anno())) {
    if (periodo.Annuale()) continue;
    auto& uno = periodi.emplace_back(IvaDelPeriodo{periodo, {}, {}, true});
    if (periodo.cod == corrente.periodo.cod) {
      for (const auto& registro : corrente.registri) {
        Aggiungi(uno, Importo::DaUnita(registro.segno), registro.Dovuta());
      }
    } else if (Liquidato(ambiente, periodo.cod)) {
      LeggiMemorizzato(ambiente, uno);
    } else {
      uno.presente = false;
    }
  }
  return periodi;
}

std::string PeriodoDaLiquidare(Ambiente& ambiente) {
  std::string primo;
  for (const auto& periodo : PeriodiIva(ambiente, ambiente.Anno())) {
    if (periodo.Annuale()) continue;
    if (Liquidato(ambiente, periodo.cod)) {
      primo.clear();
    } else if (primo.empty()) {
      primo = periodo.cod;
    }
  }
  return primo;
}

}  // namespace fenalto::vat
