// The databases of a company made anew, from a copy or compacted, and put in place of those in use.
//
//   const auto nuovi = PreparaCopia(copia, percorsi);   // the company works on
//   ... open them, look at them ...
//   CambiaArchivi(percorsi);                            // nobody has it open: both or none
//   ... open the company ...
//   TogliSostituiti(percorsi);                          // or TornaAiSostituiti
//
// A process killed at any point leaves the company with either the old databases or the new ones:
// BasiDati::Apri finishes what was begun.
#pragma once

#include "core/store/CopiaSicurezza.h"

namespace fenalto {

/// Both databases of a copy, looked at page by page and made ready. Where they are until they are
/// put in place; the error names the copy, and nothing is left.
Esito<PercorsiArchivi> PreparaCopia(const PercorsiArchivi& copia, const PercorsiArchivi& percorsi);

/// Both databases without the room that they waste. Looked at before and after: whole, and as many
/// rows in every table.
Esito<PercorsiArchivi> PreparaCompatti(const PercorsiArchivi& percorsi);

/// Puts what was made ready in place. On error the company is as it was.
Esito<bool> CambiaArchivi(const PercorsiArchivi& percorsi);
/// Puts back what CambiaArchivi has replaced.
Esito<bool> TornaAiSostituiti(const PercorsiArchivi& percorsi);
/// What was made ready goes, without having been used.
void ScartaPreparati(const PercorsiArchivi& percorsi) noexcept;
/// What CambiaArchivi has replaced goes.
void TogliSostituiti(const PercorsiArchivi& percorsi) noexcept;

/// PreparaCopia and CambiaArchivi, for a company that nobody has open; what is replaced stays
/// beside with the ending ".prima".
Esito<bool> RipristinaCopia(const std::filesystem::path& copia, const PercorsiArchivi& percorsi);

}  // namespace fenalto
