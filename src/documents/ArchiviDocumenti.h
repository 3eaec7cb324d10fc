// Archives of codes that delivery notes and invoices stand on.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto {

/// `Agenti`, `Vettori`, `CodiciAspetto`, `CodiciPorto`, `CodiciCausaliTrasporto`.
std::vector<DescrizioneArchivio> ArchiviDocumenti();

}  // namespace fenalto
