// A product's suppliers as rows of its record.
#pragma once

#include <functional>

#include "core/archives/DescrizioneArchivio.h"
#include "screens/common/rows/RigheDelRecord.h"
#include "warehouse/products/ArchivioProdotti.h"

namespace fenalto::screens {

/// What the rows ask of the product's window.
struct ProdottoInFinestra {
  /// Takes what is typed in the product's fields, false when it can't be read (told).
  std::function<bool()> raccogli;
  /// Shows the product's fields anew, not its rows.
  std::function<void()> mostra;
};

/// `parte` and `prodotto` outlive the rows.
DescrizioneRighe RigheFornitori(warehouse::ParteProdotto& parte,
                                archives::ContestoArchivio& prodotto,
                                const ProdottoInFinestra& finestra);

}  // namespace fenalto::screens
