// Rows of documents between memory and `FattureCli_r`, which is the stock ledger too: each row
// repeats what of its head moves stock.
#pragma once

#include <vector>

#include "core/session/Ambiente.h"
#include "documents/entry/IdentitaDocumento.h"
#include "documents/entry/RigaDocumento.h"

namespace fenalto::documents {

inline constexpr const char* kTestaDocumenti = "FattureCli";
inline constexpr const char* kRigheDocumenti = "FattureCli_r";

/// The lock of a document in edit; the holder when it is taken.
Esito<Blocco, Detentore> BloccaDocumento(Ambiente& ambiente, const IdentitaDocumento& documento);

/// All rows of a document, in order of `Posi`.
std::vector<RigaDocumento> LeggiRighe(Ambiente& ambiente, const IdentitaDocumento& documento);

/// Adds rows to a document, in the caller's transaction. `copiate` are the columns repeated from
/// the head.
void AggiungiRighe(Ambiente& ambiente, const IdentitaDocumento& documento,
                   const std::vector<Coppia>& copiate, const std::vector<RigaDocumento>& righe);

/// Erases all rows of a document.
void TogliRighe(Ambiente& ambiente, const IdentitaDocumento& documento);

/// Writes what is repeated from the head into the rows as they stand, by one statement.
void RiportaTesta(Ambiente& ambiente, const IdentitaDocumento& documento,
                  const std::vector<Coppia>& copiate);

/// Gives loads with a lot their number: the series goes on when its last bearer is gone. Under the
/// lock FATTURECLI, in the caller's transaction.
void NumeraLotti(Ambiente& ambiente, std::vector<RigaDocumento>& righe);

/// How amounts of rows are worked out in the company.
struct RegolaImporto {
  bool euro = true;
  bool arrotonda = false;
};
RegolaImporto RegolaDi(Ambiente& ambiente);
/// Amount of a row; throws FuoriCampo.
Importo ImportoDi(const RigaDocumento& riga, const RegolaImporto& regola);

}  // namespace fenalto::documents
