// The archives of those one sells to and buys from.
#pragma once

#include <memory>
#include <vector>

#include "core/archives/DescrizioneArchivio.h"
#include "documents/parties/DestinazioniCliente.h"

namespace fenalto::documents {

/// Page of `Clienti` under whose fields the list of destinations stands.
inline constexpr const char* kPaginaDestinazioni = "PaginaDestinazioni";

/// `Clienti`. The window owns `destinazioni` too, and shows them on their page.
archives::DescrizioneArchivio ArchivioClienti(
    const std::shared_ptr<DestinazioniCliente>& destinazioni);
archives::DescrizioneArchivio ArchivioFornitori();

/// `Clienti` and `Fornitori`: identity, tax numbers, how their invoices are accounted. Each record
/// has its row in the list that movements search, written and erased with it.
std::vector<archives::DescrizioneArchivio> ArchiviParti();

}  // namespace fenalto::documents
