// Deleting a document.
#include <algorithm>

#include "core/records/Conferma.h"
#include "documents/entry/FattureCliInterno.h"

namespace fenalto::documents {

bool FattureCli::Interno::EliminazioneAmmessa() {
  const auto& tutte = righe.Tutte();
  if (std::ranges::any_of(tutte, [](const RigaDocumento& una) { return una.ordine != 0; })) {
    Avviso(
        "questo documento ha scaricato ordini, eliminandolo potrebbero crearsi discordanze con "
        "l'ordine se ci sono delle consegne a saldo dell'ordine");
  }
  if (!ChiediEliminazioneLegati()) return false;
  for (const RigaDocumento& una : tutte) {
    if (una.nl1 == 0) continue;
    if (ambiente.Esiste("tessarc", "ZRigheDaLotto", {{"NL2", una.nl1}})) {
      Avviso("non si può eliminare esistono scarichi correlati ai lotti");
      return false;
    }
    if (ConComponenti(una.nl1)) {
      Avviso("non si può eliminare: esistono movimenti di scarico componenti correlati al lotto");
      return false;
    }
  }
  if (std::ranges::any_of(tutte, [](const RigaDocumento& una) { return una.nl3 != 0; })) {
    Avviso(kAvvisoComponenti);
  }
  return ambiente.Dialogo().Conferma("Conferma eliminazione DOCUMENTO " +
                                     std::to_string(numeroRecord));
}

bool FattureCli::Elimina() {
  Interno& io = *interno_;
  if (io.documento.Nuovo() || io.Ferma()) return false;
  const bool eliminato = records::Esegui(
      io.ambiente,
      {.nonRiuscita = "eliminazione del documento non riuscita: ",
       .dopoErrore =
           "\nNon è stato eliminato nulla: il documento è ancora sullo schermo, si può riprovare",
       .numerazioni = {"FATTURECLI"},
       .ambito = Transazione::Ambito::Tessarc,
       .prima = [&] { return io.EliminazioneAmmessa(); },
       .scrivi =
           [&] {
             io.CancellaLegati();
             io.allegati.EliminaRighe();
             TogliRighe(io.ambiente, io.Identita());
             records::EliminaRighe(io.tessarc, kTestaDocumenti, io.Identita().Chiave());
             return std::string();
           }});
  io.bloccati.clear();
  if (!eliminato) return false;
  io.allegati.EliminaFile();
  io.fatto = {io.NomeDocumento(io.numeroRecord) + " eliminato"};
  io.ChiudiRecord();
  return true;
}

}  // namespace fenalto::documents
