// The moves of a person in the archive of due dates and on those of a document.
#include "duedates/random/DittaCasuale.h"
#include "duedates/schedules/ArchivioScadenze.h"
#include "duedates/schedules/ScadenzeDocumento.h"

namespace fenalto::prova {

/// Deposits come off a due date of the document, and nothing goes out of step.
void DittaCasuale::Deduci(const Mossa& mossa) {
  const auto scelta = UnaDelle("Articolo<>0 and Stato<'30' and anticipo=False", mossa);
  if (!scelta) return;
  duedates::ScadenzeDocumento documento(ambiente);
  RC_ASSERT(documento.Apri(scelta->anno, scelta->articolo));
  Importo resto = scelta->Residuo();
  bool una = false;
  unsigned quale = 0;
  for (const duedates::Scadenza& anticipo : documento.Anticipi()) {
    if (resto <= Importo()) break;
    // Of another party when the document bears the number of an erased registration.
    if (anticipo.cfp != scelta->cfp || anticipo.conto != scelta->conto) continue;
    if (!anticipo.Residuo().Negativo()) continue;
    const bool si = !Bit(mossa, quale++ % 8);
    dialoghi.Rispondera("sottraggo l'anticipo di euro", si ? Risposta::Si : Risposta::No);
    if (si) resto += anticipo.Residuo();
    una = una || si;
  }
  RC_ASSERT(documento.DeduciAnticipi(scelta->numero) == una);
  if (una) Nota("anticipi dedotti da scad. " + std::to_string(scelta->numero));
}

void DittaCasuale::Ripristina(const Mossa& mossa) {
  const auto scelta = UnaDelle("Stato>='30'", mossa);
  if (!scelta) return;
  duedates::ArchivioScadenze archivio(ambiente);
  RC_ASSERT(archivio.Apri(scelta->numero));
  dialoghi.Rispondera("Si tratta di una scadenza già pagata", Risposta::Si);
  const bool senzaPagamento = archivio.Record().Leggi("DtPag").Data().Nulla();
  RC_ASSERT(archivio.Ripristina());
  Nota("scad. " + std::to_string(scelta->numero) + " ripristinata");
  // A payment leaves nothing to pay; a receipt went to the bank with what was left of it.
  const bool presentata =
      scelta->tipo == duedates::kTipoRiba && (senzaPagamento || !scelta->Residuo().Zero());
  Scosta({scelta->cfp, scelta->conto}, presentata ? -scelta->Residuo() : -scelta->importoE,
         "Si tratta di una scadenza già pagata");
}

/// A new due date, or another amount of one that is there.
void DittaCasuale::ScadenzaAMano(const Mossa& mossa) {
  duedates::ArchivioScadenze archivio(ambiente);
  const auto scelta = Bit(mossa, 0) ? std::nullopt : UnaDelle("1=1", mossa);
  const Importo importo = Bit(mossa, 1) && Bit(mossa, 2) ? -ImportoDi(mossa) : ImportoDi(mossa);
  const Parte parte = scelta ? Parte{scelta->cfp, scelta->conto} : ParteDi(mossa);
  if (scelta) {
    RC_ASSERT(archivio.Apri(scelta->numero));
  } else {
    archivio.Inizia({{"CFP", parte.first}, {"Conto", parte.second}});
    archivio.Record().Scrivi("Tipo", Bit(mossa, 3) ? duedates::kTipoRiba : "01");
    archivio.Record().Scrivi("Stato", duedates::kStatoAperta);
  }
  archivio.Record().Scrivi("ImportoE", importo);
  if (scelta && importo != scelta->importoE &&
      duedates::SegniContrari(importo, scelta->importoPagatoE)) {
    dialoghi.Rispondera("ha il segno contrario", Risposta::Si);
  }
  RC_ASSERT(archivio.Conferma());
  Nota("scad. " + std::to_string(archivio.Numero()) + " a mano " + parte.first + parte.second +
       " " + importo.Testo());
  if (!scelta) {
    Scosta(parte, -importo);
    return;
  }
  duedates::Scadenza dopo = *scelta;
  dopo.importoE = importo;
  const bool automatica = scelta->articolo != 0;
  Scosta(parte, Aperto(*scelta) - Aperto(dopo),
         automatica ? "scadenza creata automaticamente" : "");
}

void DittaCasuale::EliminaScadenza(const Mossa& mossa) {
  const auto scelta = UnaDelle("1=1", mossa);
  if (!scelta) return;
  duedates::ArchivioScadenze archivio(ambiente);
  RC_ASSERT(archivio.Apri(scelta->numero));
  dialoghi.Rispondera("Conferma eliminazione SCADENZA ?", Risposta::Si);
  RC_ASSERT(archivio.Elimina());
  Nota("scad. " + std::to_string(scelta->numero) + " eliminata");
  Scosta({scelta->cfp, scelta->conto}, Aperto(*scelta), "potrebbero crearsi discordanze");
}

}  // namespace fenalto::prova
