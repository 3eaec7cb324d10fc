// The batch as it is handed to the bank: a receipt a line, sums and account in the heading. What
// only the presenter reads (remarks, registration, file) stands on pages of its own behind it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "duedates/riba/StampaDistinta.h"

namespace fenalto::duedates {

/// What is printed of a batch.
struct ParteDistinta {
  bool ricevute = true;
  /// Once the batch is in the books: its registration, 0 for none.
  std::optional<std::int64_t> articolo = {};
};

/// False when it was cancelled or failed (told).
bool StampaDistintaGrafica(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                           std::unique_ptr<reports::Uscita> uscita, const DatiDistinta& dati,
                           const FormaDistinta& forma, const ParteDistinta& parte);

}  // namespace fenalto::duedates
