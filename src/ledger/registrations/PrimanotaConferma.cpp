// Confirming and deleting a registration: the checks, the number, the one transaction.
#include <utility>

#include "core/sql/Criterio.h"
#include "ledger/registrations/Primanota.h"
#include "ledger/registrations/PrimanotaInterno.h"
#include "ledger/registrations/TestataArticolo.h"

namespace fenalto::ledger {

namespace {

/// One side of the head: the account of its only row, or "DIVERSI".
struct LatoTestata {
  std::string cfp;
  std::string conto;
  bool trovata = false;

  void Vedi(const RigaPrimanota& riga, Importo importo) {
    if (importo.Zero()) return;
    // A second row makes it several, even on the same account.
    cfp = trovata ? "" : riga.cfp;
    conto = trovata ? std::string(kDiversi) : riga.conto;
    trovata = true;
  }
};

}  // namespace

bool Primanota::Interno::NumeroOccupato() {
  const std::int64_t numero = testa.Leggi("NumDoc").Intero();
  if (numero == numeroRecord) return false;
  return ambiente.Esiste("tessarc", "Articoli", {{"NumDoc", numero}, {"Anno", anno}}, "articolo");
}

std::int64_t Primanota::Interno::ScriviTestata(std::int64_t numero) {
  LatoTestata dare;
  LatoTestata avere;
  for (const RigaPrimanota& r : righe) {
    dare.Vedi(r, r.impoDare);
    avere.Vedi(r, r.impoAvere);
  }
  const std::vector<Coppia> campi = {{"Anno", anno},
                                     {"NumDoc", numero},
                                     {"Dt", testa.Leggi("Dt").Data()},
                                     {"CFP", dare.cfp},
                                     {"Conto", dare.conto},
                                     {"CfpA", avere.cfp},
                                     {"ContoA", avere.conto},
                                     {"Duplicabile", testa.Leggi("Duplicabile").Booleano()},
                                     {"DescrArtDupl", testa.Testo("DescrArtDupl")}};
  if (nuova) return tessarc.Inserisci("Articoli", campi);

  AggiornaTestata(tessarc, idRecord, numeroRecord, campi);
  return idRecord;
}

std::int64_t Primanota::Interno::ScriviRegistrazione() {
  TransazionePrimanota transazione(ambiente.Basi(), Transazione::Ambito::Tessarc);
  std::int64_t numero = testa.Leggi("NumDoc").Intero();
  if (numero == 0) {
    numero = ambiente.Max("NumDoc", "Articoli", {{"Anno", anno}}, tessarc).Intero() + 1;
  }
  if (!nuova) {
    tessarc.Esegui("delete * from Movimenti where " + sql::Criterio("NumDoc", "=", numeroRecord) +
                   " and " + sql::Criterio("anno", "=", anno));
  }
  temp->Esegui("update Movimenti set " + sql::Criterio("NumDoc", "=", numero) + "," +
               sql::Criterio("anno", "=", anno));
  // The head first: the rows then take its date as they are written.
  const std::int64_t id = ScriviTestata(numero);
  temp->CopiaRighe(tessarc.Percorso(), kTabellaRighe, {{"anno", anno}, {"NumDoc", numero}});
  allegati.Scrivi(id, "Articolo n.: " + std::to_string(numero));
  // Part of the same transaction: what failed leaves the rows in the scratch as well.
  temp->Esegui("delete * from Movimenti");
  transazione.Conferma();
  allegati.Confermati();
  return numero;
}

void Primanota::Interno::NonRiuscito(const std::string& azione, const std::exception& errore) {
  allegati.Annullati();
  ambiente.Dialogo().Messaggio(
      azione + " non riuscita: " + errore.what() +
          "\nNon è stato scritto nulla: la registrazione è ancora sullo schermo, si può riprovare",
      Icona::Errore);
}

bool Primanota::Conferma() {
  Interno& io = *interno_;
  if (io.stato == Stato::Inattiva || io.RigaInCorso() || io.RifiutaSolaLettura()) return false;
  io.NormalizzaNumero();
  std::int64_t numero = 0;
  try {
    if (io.NumeroOccupato()) return false;
    if (io.totali.dare != io.totali.avere) {
      io.Avviso("Sbilancio");
      return false;
    }
    const Blocco numerazione = io.ambiente.BloccaTabella("ARTICOLI", true);
    if (!numerazione.Tenuto()) return false;
    // Another station may have taken a typed number since the first look.
    if (io.NumeroOccupato()) return false;
    numero = io.ScriviRegistrazione();
  } catch (const std::exception& e) {
    io.NonRiuscito("conferma della registrazione", e);
    return false;
  }
  if (io.nuova) io.dataRicordata = io.testa.Leggi("Dt").Data();
  io.numeroConfermato = numero;
  io.ChiudiRecord();
  io.ambiente.AvvisoNumero("ARTICOLO CONTABILE", numero, "annotare il numero");
  return true;
}

std::int64_t Primanota::NumeroConfermato() const {
  return interno_->numeroConfermato;
}

bool Primanota::Elimina() {
  Interno& io = *interno_;
  if (io.stato == Stato::Inattiva || io.RigaInCorso() || io.RifiutaSolaLettura()) return false;
  if (io.nuova) {
    io.Avviso("la registrazione non è ancora confermata: non c'è nulla da eliminare");
    return false;
  }
  if (!io.ambiente.Dialogo().Conferma(
          "Conferma eliminazione ARTICOLO CONTABILE ?\n"
          "(Attenzione all'annullamento se l'articolo è stato generato automaticamente da "
          "registrazione su scadenzario o dal pagamento di una fattura)")) {
    return false;
  }
  try {
    TransazionePrimanota transazione(io.ambiente.Basi(), Transazione::Ambito::Tessarc);
    io.tessarc.Esegui("delete * from Movimenti where " +
                      sql::Criterio("NumDoc", "=", io.numeroRecord) + " and " +
                      sql::Criterio("anno", "=", io.anno));
    io.allegati.EliminaRighe();
    io.tessarc.Esegui("delete * from Articoli where " + sql::Criterio("ID", "=", io.idRecord));
    transazione.Conferma();
  } catch (const std::exception& e) {
    io.NonRiuscito("eliminazione della registrazione", e);
    return false;
  }
  io.allegati.EliminaFile();
  io.ChiudiRecord();
  return true;
}

void Primanota::Abbandona() {
  interno_->ChiudiRecord();
}

}  // namespace fenalto::ledger
