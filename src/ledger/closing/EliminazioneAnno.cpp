#include "ledger/closing/EliminazioneAnno.h"

#include "core/archives/TabelleDitta.h"
#include "core/records/Conferma.h"
#include "core/session/CopieDitta.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/closing/RegistrazioniEliminate.h"

namespace fenalto::ledger {

namespace {

void EliminaRighe(Ambiente& ambiente, int anno, RegistrazioniEliminate& eliminate) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  eliminate.Elimina(anno, "1=1");
  for (const archives::TabellaDitta& tabella : archives::TavolaTabelle()) {
    if (tabella.anno == nullptr) continue;
    ambiente.ArchivioDi(tabella.chiave)
        .Esegui(std::string("delete * from ") + tabella.tabella + " where " +
                sql::Criterio(tabella.anno, "=", anno));
  }
  // Openings that came from another year went with their registrations.
  tessarc.Esegui("delete * from OperazioniAnno where " + sql::Criterio("AnnoScritto", "=", anno));
}

/// Due dates have no year of their own and stay; how many name a registration of that year.
std::int64_t ScadenzeDellAnno(Ambiente& ambiente, int anno) {
  return ambiente.ArchivioDi("scadenzario")
      .Singolo("select count(*) from Scadenze where " + sql::Criterio("Anno", "=", anno))
      .Intero();
}

/// The year typed once more, so that nobody erases a year by a press too many.
bool AnnoRidigitato(Ambiente& ambiente, const std::string& anno) {
  const auto digitato =
      ambiente.Dialogo().Chiedi("SE SEI SICURO DI ELIMINARE L'ANNO " + anno + " DELLA DITTA " +
                                ambiente.Ditta() + " IMPOSTA QUI L'ANNO E PREMI OK");
  if (!digitato) return false;
  if (Rifila(*digitato) == anno) return true;
  ambiente.Dialogo().Annuncia("l'anno digitato non è il " + anno + ": non è stato eliminato nulla");
  return false;
}

}  // namespace

bool EliminaAnno(Ambiente& ambiente, int anno) {
  const std::string scritto = std::to_string(anno);
  const auto nonUnico = [&] {
    if (ambiente.ArchivioDi("tessarc").Singolo("select count(*) from Anni").Intero() > 1) {
      return true;
    }
    ambiente.Dialogo().Messaggio(
        "non si può eliminare in quanto l'anno " + scritto + " è l'unico esistente", Icona::Avviso);
    return false;
  };
  std::filesystem::path copia;
  std::int64_t scadenze = 0;
  RegistrazioniEliminate eliminate(ambiente, ambiente.ArchivioDi("tessarc"));
  const bool fatto = records::Esegui(
      ambiente,
      {.nonRiuscita = "eliminazione dell'anno " + scritto + " non riuscita: ",
       .numerazioni = {"FATTURECLI", "ARTICOLI"},
       .prima =
           [&] {
             if (!nonUnico()) return false;
             if (!ambiente.Dialogo().Conferma(
                     "Conferma eliminazione Anno " + scritto +
                     " e TUTTE le registrazioni (contabilità, ddt, fatture, movimentazione "
                     "magazzino) ?") ||
                 !AnnoRidigitato(ambiente, scritto)) {
               return false;
             }
             auto fatta = CopiaPrimaDi(ambiente, "eliminazione anno " + scritto);
             if (!fatta) {
               ambiente.Dialogo().Messaggio(fatta.Errore().messaggio, Icona::Errore);
               return false;
             }
             copia = std::move(fatta).Valore();
             return true;
           },
       .sottoBlocco = nonUnico,
       .scrivi =
           [&] {
             EliminaRighe(ambiente, anno, eliminate);
             scadenze = ScadenzeDellAnno(ambiente, anno);
             return std::string();
           }});
  if (!fatto) return false;
  eliminate.EliminaFile();
  std::string testo = "ELIMINAZIONE ANNO EFFETTUATA";
  if (scadenze > 0) {
    testo += "\nrestano " + std::to_string(scadenze) +
             " scadenze che si riferiscono a registrazioni dell'anno " + scritto;
  }
  ambiente.Dialogo().Messaggio(testo + NominaCopia(copia));
  return true;
}

}  // namespace fenalto::ledger
