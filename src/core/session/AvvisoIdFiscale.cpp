#include "core/session/AvvisoIdFiscale.h"

#include "core/values/IdFiscale.h"

namespace fenalto {

bool ControlloPartitaIva(Dialoghi& dialogo, std::string_view valore, bool segnala,
                         const std::string& conto) {
  if (IdFiscaleValido(valore)) return true;
  if (segnala) {
    dialogo.Messaggio("PARTITA IVA ERRATA" + (conto.empty() ? conto : " su conto " + conto) +
                          "\n(oppure potrebbe trattarsi di codice fiscale o p.iva estera)",
                      Icona::Avviso);
  }
  return false;
}

}  // namespace fenalto
