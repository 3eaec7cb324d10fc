// The texts of a page: with the number of pages in place of its mark, and as it is copied.
#pragma once

#include <QRectF>
#include <QString>
#include <string>

#include "core/reports/Pagina.h"

namespace fenalto::print {

class Pittore;

/// The text with `totale` in place of the mark, taking the blanks that follow so that later columns
/// keep their place; a total not known yet (0) shows as an ellipsis.
[[nodiscard]] QString ConTotale(const std::string& testo, int totale);
/// Whether a text of the page waits for the number of pages.
[[nodiscard]] bool AttendeTotale(const reports::Pagina& pagina);

/// The page's text under `area` (empty for all of it), top to bottom: fixed lines cut to the
/// columns that the area covers, other texts whole, with tabs between those of one line.
[[nodiscard]] QString TestoDi(Pittore& pittore, const reports::Pagina& pagina, int totale,
                              const QRectF& area);

}  // namespace fenalto::print
