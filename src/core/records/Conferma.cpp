#include "core/records/Conferma.h"

#include <exception>

#include "core/store/TransazioneComune.h"

namespace fenalto::records {

bool Tenta(Ambiente& ambiente, const TestoGuasto& guasto, const std::function<bool()>& lavoro) {
  std::string errore;
  try {
    return lavoro();
  } catch (const std::exception& e) {
    errore = e.what();
  }
  ambiente.Dialogo().Messaggio((guasto.prima + errore).append(guasto.dopo), Icona::Errore);
  return false;
}

std::string InTransazione(Ambiente& ambiente, Transazione::Ambito ambito,
                          const std::function<std::string()>& scrivi) {
  TransazioneComune transazione(ambiente.Basi(), ambito);
  std::string rifiuto = scrivi();
  if (rifiuto.empty()) transazione.Conferma();
  return rifiuto;
}

bool Esegui(Ambiente& ambiente, const Conferma& conferma) {
  std::string rifiuto;
  const auto lavoro = [&] {
    if (conferma.prima && !conferma.prima()) return false;
    const Numerazioni numerazioni(ambiente, conferma.numerazioni);
    if (!numerazioni.Tenute()) return false;
    if (conferma.sottoBlocco && !conferma.sottoBlocco()) return false;
    try {
      rifiuto = InTransazione(ambiente, conferma.ambito, conferma.scrivi);
    } catch (const std::exception&) {
      if (conferma.annulla) conferma.annulla();
      throw;
    }
    if (!rifiuto.empty() && conferma.annulla) conferma.annulla();
    return rifiuto.empty();
  };
  const bool scritta = Tenta(ambiente, {conferma.nonRiuscita, conferma.dopoErrore}, lavoro);
  if (!rifiuto.empty()) {
    ambiente.Dialogo().Messaggio(rifiuto.append(conferma.dopoRifiuto), Icona::Avviso);
  }
  return scritta;
}

}  // namespace fenalto::records
