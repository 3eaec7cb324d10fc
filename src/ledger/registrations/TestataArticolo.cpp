#include "ledger/registrations/TestataArticolo.h"

#include <string>

#include "core/records/RigheInTabella.h"

namespace fenalto::ledger {

Esito<Blocco, Detentore> BloccaArticolo(Ambiente& ambiente, int anno, std::int64_t numDoc) {
  return ambiente.Basi().Blocchi().Record("ARTICOLI",
                                          std::to_string(anno) + "|" + std::to_string(numDoc));
}

void AggiornaTestata(Archivio& tessarc, std::int64_t id, std::int64_t numero,
                     const std::vector<Coppia>& campi) {
  if (records::AggiornaRighe(tessarc, "Articoli", campi, {{"ID", id}}) == 0) {
    throw ErroreArchivio(ErroreArchivio::Causa::Mancante,
                         "la registrazione n. " + std::to_string(numero) +
                             " non c'è più: è stata eliminata mentre era aperta");
  }
}

}  // namespace fenalto::ledger
