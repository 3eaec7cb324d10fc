// The archive of products: whatever may stand on a row of a document, a service as well as a
// stocked article.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "core/archives/DescrizioneArchivio.h"
#include "core/session/Allegati.h"
#include "warehouse/products/FornitoriProdotto.h"

namespace fenalto::warehouse {

/// Page of the record under whose fields the suppliers stand.
inline constexpr const char* kPaginaFornitori = "PaginaFornitori";
/// Page under whose fields the files of the folders and the attachments stand.
inline constexpr const char* kPaginaFile = "PaginaFile";
/// Frame of the cost from the bill of materials, with its choice and its button.
inline constexpr const char* kCostoDistinta = "FrameCostoDB";
/// Field of the choice: `kMedio` or `kUltimo`.
inline constexpr const char* kTipoCosto = "TipoCostoDB";
inline constexpr const char* kMedio = "Medio";
inline constexpr const char* kUltimo = "Ultimo";
/// Function that deletes or renames a product in use: a deletion goes there.
inline constexpr const char* kEliminazione = "EliminazioneProdotto";

/// What the archive asks of stock, which stands upon it.
struct DalMagazzino {
  std::function<Importo(const std::string& prodotto)> costoUltimo;
  std::function<Importo(const std::string& prodotto, bool medio)> costoDaDistinta;
  int decimaliPrezzo = 2;
  int decimaliQuantita = 2;
};

/// The record's own: its suppliers, its attachments, what costs it. The window owns them too.
struct ParteProdotto {
  ParteProdotto(Ambiente& ambiente, DalMagazzino magazzinoUsato)
      : allegati(ambiente, "Prodotti", "Prodotto"), magazzino(std::move(magazzinoUsato)) {}

  FornitoriProdotto fornitori;
  Allegati allegati;
  DalMagazzino magazzino;
};

/// "Prezzo 5": the cost and its mark-up, zero without one. The cost is what was typed, else that of
/// the last load.
Importo PrezzoConRicarico(Importo ricarico, Importo costoDigitato, Importo ultimo, int decimali);

archives::DescrizioneArchivio ArchivioProdotti(const std::shared_ptr<ParteProdotto>& parte);

/// Puts the cost from the bill of materials into `CostoDigitato` of the open product; false when
/// it isn't stored yet (told).
bool AggiornaCostoDaDistinta(archives::ContestoArchivio& contesto, const ParteProdotto& parte);
/// Puts the cost of the supplier's row in edit there.
void AggiornaCostoDigitato(archives::ContestoArchivio& contesto, const ParteProdotto& parte);

}  // namespace fenalto::warehouse
