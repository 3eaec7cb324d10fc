// Archives of codes that delivery notes and invoices stand on.
#pragma once

#include <vector>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::documents {

/// `Agenti`, `Vettori`, `CodiciAspetto`, `CodiciPorto`, `CodiciCausaliTrasporto`.
std::vector<archives::DescrizioneArchivio> ArchiviDocumenti();

}  // namespace fenalto::documents
