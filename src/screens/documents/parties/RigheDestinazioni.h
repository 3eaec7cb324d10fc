// A customer's goods destinations as rows of its record.
#pragma once

#include <functional>

#include "documents/parties/DestinazioniCliente.h"
#include "screens/common/rows/RigheDelRecord.h"

namespace fenalto::screens {

/// `destinazioni` and `cliente` outlive the rows; `raccogli` takes what is typed in the customer's
/// fields, false when it can't be read (told).
DescrizioneRighe RigheDestinazioni(documents::DestinazioniCliente& destinazioni,
                                   archives::ContestoArchivio& cliente,
                                   const std::function<bool()>& raccogli);

}  // namespace fenalto::screens
