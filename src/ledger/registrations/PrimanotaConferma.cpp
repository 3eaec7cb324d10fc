// Confirming and deleting a registration: the checks, the number, the one transaction.
#include <algorithm>

#include "core/records/Conferma.h"
#include "core/records/RigheInTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
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

/// By how much the sides differ, and which one lacks it.
std::string TestoSbilancio(const TotaliPrimanota& totali, bool euro) {
  const int decimali = euro ? 2 : 0;
  return "Sbilancio\nin " + std::string(totali.sbilancio.Negativo() ? "dare" : "avere") +
         " manca " + ScriviImporto(totali.sbilancio.Assoluto(), decimali) + ": dare " +
         ScriviImporto(totali.dare, decimali) + ", avere " + ScriviImporto(totali.avere, decimali);
}

}  // namespace

bool Primanota::Interno::NumeroOccupato() {
  const std::int64_t numero = testa.Leggi("NumDoc").Intero();
  if (numero == numeroRecord) return false;
  return ambiente.Esiste("tessarc", "Articoli", {{"NumDoc", numero}, {"Anno", anno}}, "articolo");
}

std::int64_t Primanota::Interno::ScriviTestata(std::int64_t numero) {
  LatoTestata dare;
  LatoTestata avere;
  for (const RigaPrimanota& r : righe.Tutte()) {
    dare.Vedi(r, r.impoDare);
    avere.Vedi(r, r.impoAvere);
  }
  std::vector<Coppia> campi = {{"Anno", anno},
                               {"NumDoc", numero},
                               {"Dt", testa.Leggi("Dt").Data()},
                               {"CFP", dare.cfp},
                               {"Conto", dare.conto},
                               {"CfpA", avere.cfp},
                               {"ContoA", avere.conto},
                               {"Duplicabile", testa.Leggi("Duplicabile").Booleano()},
                               {"DescrArtDupl", testa.Testo("DescrArtDupl")}};
  if (documento.Nuovo()) {
    campi.emplace_back("CREATOINAUTOMATICO", static_cast<int>(origine));
    return tessarc.Inserisci("Articoli", campi);
  }
  AggiornaTestata(tessarc, idRecord, numeroRecord, campi);
  return idRecord;
}

std::int64_t Primanota::Interno::ScriviRegistrazione() {
  std::int64_t numero = testa.Leggi("NumDoc").Intero();
  if (numero == 0) {
    numero = ambiente.Max("NumDoc", "Articoli", {{"Anno", anno}}, tessarc).Intero() + 1;
  }
  if (!documento.Nuovo()) {
    records::EliminaRighe(tessarc, kTabellaRighe, {{"NumDoc", numeroRecord}, {"anno", anno}});
  }
  // The head first: the rows then take its date as they are written.
  const std::int64_t id = ScriviTestata(numero);
  // The books number rows in the order in which they were typed.
  std::vector<RigaPrimanota> daScrivere = righe.Tutte();
  std::ranges::sort(daScrivere, {}, &RigaPrimanota::num);
  records::ScriviRighe(tessarc, kTabellaRighe, daScrivere, righe.Campi(),
                       {{"anno", anno}, {"NumDoc", numero}});
  allegati.Scrivi(id, "Articolo n.: " + std::to_string(numero));
  return numero;
}

std::optional<Rifiuto> Primanota::Interno::Controlla() {
  if (NumeroOccupato()) return Rifiuto{"", "NumDoc"};
  if (totali.dare != totali.avere) {
    return Rifiuto{TestoSbilancio(totali, ambiente.Euro()), "PNuovaRiga"};
  }
  // Without one it would be in no balance and on no page of the journal.
  if (testa.Leggi("Dt").Data().Nulla()) return Rifiuto{"manca la data", "Dt"};
  return RigaConCodiceIgnoto();
}

std::optional<Rifiuto> Primanota::Interno::RigaConCodiceIgnoto() {
  const auto cambiata = [this](const RigaPrimanota& una) {
    const auto letta = std::ranges::find(righeLette, una.num, &RigaPrimanota::num);
    return letta == righeLette.end() || !StessiCodici(una, *letta);
  };
  for (const RigaPrimanota& una : righe.Tutte()) {
    if (!cambiata(una)) continue;
    if (auto ignoto = CodiceIgnotoDi(ambiente, una, !contropAutomatiche)) {
      return Rifiuto{"riga in posizione " + std::to_string(una.posi) + ": " + ignoto->messaggio,
                     "GrigliaRighe"};
    }
  }
  return std::nullopt;
}

bool Primanota::Conferma(std::string* campo) {
  Interno& io = *interno_;
  if (io.Ferma()) return false;
  io.NormalizzaNumero();
  std::int64_t numero = 0;
  const bool scritta = records::Esegui(
      io.ambiente, {.nonRiuscita = "conferma della registrazione non riuscita: ",
                    .dopoErrore = records::kAncoraSulloSchermo,
                    .numerazioni = {"ARTICOLI"},
                    .ambito = Transazione::Ambito::Tessarc,
                    .prima = [&] { return !io.documento.Rifiuta(io.Controlla(), campo); },
                    // Another station may have taken a typed number since the first look.
                    .sottoBlocco = [&] { return !io.NumeroOccupato(); },
                    .scrivi =
                        [&] {
                          io.bozza.InConferma(true);
                          // An account or a causal may have been deleted since.
                          if (const auto ignoto = io.RigaConCodiceIgnoto()) {
                            return ignoto->messaggio;
                          }
                          numero = io.ScriviRegistrazione();
                          return std::string();
                        },
                    .annulla = [&] { io.allegati.Annullati(); }});
  if (!scritta) {
    io.bozza.InConferma(false);
    return false;
  }
  io.bozza.Fine();
  io.allegati.Confermati();
  if (io.documento.Nuovo()) io.dataRicordata = io.testa.Leggi("Dt").Data();
  io.numeroConfermato = numero;
  io.ambiente.Ricorda(AlNumero("Movimenti", numero, io.ambiente.Anno()));
  io.ChiudiRecord();
  io.ambiente.AvvisoNumero("ARTICOLO CONTABILE", numero, "annotare il numero");
  return true;
}

std::int64_t Primanota::NumeroConfermato() const {
  return interno_->numeroConfermato;
}

bool Primanota::Elimina() {
  Interno& io = *interno_;
  if (io.Ferma()) return false;
  if (io.documento.Nuovo()) {
    io.Avviso("la registrazione non è ancora confermata: non c'è nulla da eliminare");
    return false;
  }
  if (!io.ambiente.Dialogo().Conferma(
          "Conferma eliminazione ARTICOLO CONTABILE ?\n"
          "(Attenzione all'annullamento se l'articolo è stato generato automaticamente da "
          "registrazione su scadenzario o dal pagamento di una fattura)")) {
    return false;
  }
  const auto elimina = [&] {
    records::EliminaRighe(io.tessarc, kTabellaRighe,
                          {{"NumDoc", io.numeroRecord}, {"anno", io.anno}});
    io.allegati.EliminaRighe();
    io.tessarc.Esegui("delete * from Articoli where " + sql::Criterio("ID", "=", io.idRecord));
    return std::string();
  };
  const bool eliminata = records::Esegui(
      io.ambiente, {.nonRiuscita = "eliminazione della registrazione non riuscita: ",
                    .dopoErrore = records::kAncoraSulloSchermo,
                    .ambito = Transazione::Ambito::Tessarc,
                    .scrivi = elimina,
                    .annulla = [&] { io.allegati.Annullati(); }});
  if (!eliminata) return false;
  io.allegati.EliminaFile();
  io.ChiudiRecord();
  return true;
}

void Primanota::Abbandona() {
  interno_->ChiudiRecord();
}

}  // namespace fenalto::ledger
