// Pieces of the archive of products.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "warehouse/products/ArchivioProdotti.h"

namespace fenalto::warehouse {

/// Shown beside the mark-up, not stored.
inline constexpr const char* kPrezzo5 = "Prezzo5";

/// Fields, frames and pages of the record (CampiProdotti.cpp).
void DescriviProdotto(archives::DescrizioneArchivio& archivio, const DalMagazzino& magazzino);

// --- Rules (ControlliProdotti.cpp) ---------------------------------------------------------------

/// A field was left with a new value.
void ProdottoLasciato(archives::ContestoArchivio& contesto, const ParteProdotto& parte,
                      const std::string& campo);
void MostraPrezzo5(archives::ContestoArchivio& contesto, const ParteProdotto& parte);
/// A new product's code, where it was taken meanwhile, and the day of changed prices.
void ComponiProdotto(archives::ContestoArchivio& contesto);
/// Checks of a confirmation, after those of the code.
std::vector<archives::DescrizioneArchivio::Controllo> ControlliProdotto(
    const std::shared_ptr<ParteProdotto>& parte);

}  // namespace fenalto::warehouse
