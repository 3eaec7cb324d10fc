#include "ledger/registrations/ControlliData.h"

#include <string>

namespace fenalto::ledger {

bool ControlloDataGiornale(Ambiente& ambiente, Data data) {
  if (data.Nulla()) data = Ambiente::DataMinima();
  const Data stampata =
      ambiente.Max("dt", "UltimaDataLibro", {}, ambiente.ArchivioDi("tessarc")).Data();
  if (data >= stampata) return false;
  ambiente.Dialogo().Messaggio(
      "data registrazione contabile antecedente all'ultima data già stampata su libro giornale",
      Icona::Avviso);
  return true;
}

bool ControlloAnno(Ambiente& ambiente, Data data, bool chiediConferma, int anno) {
  if (anno == 0) anno = ambiente.Anno();
  if (data.Anno() == anno) return false;
  const std::string testo =
      "Attenzione : la data registrazione contabile è relativa ad un anno diverso da " +
      std::to_string(anno);
  if (chiediConferma) return !ambiente.Dialogo().Conferma(testo + "\nProseguo ugualmente");
  ambiente.Dialogo().Messaggio(testo, Icona::Avviso);
  return false;
}

}  // namespace fenalto::ledger
