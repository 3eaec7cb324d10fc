#include "screens/main/Archivi.h"

#include <iterator>

#include "documents/ArchiviDocumenti.h"
#include "documents/ArchiviParti.h"
#include "duedates/ArchiviScadenze.h"
#include "ledger/ArchiviContabili.h"
#include "ledger/PianoDeiConti.h"
#include "vat/ArchiviIva.h"
#include "warehouse/ArchiviMagazzino.h"

namespace fenalto {

std::vector<DescrizioneArchivio> TuttiGliArchivi() {
  std::vector<DescrizioneArchivio> tutti;
  for (auto stanza : {ArchiviContabili, ArchiviPianoDeiConti, ArchiviIva, ArchiviScadenze,
                      ArchiviDocumenti, ArchiviParti, ArchiviMagazzino}) {
    auto suoi = stanza();
    std::move(suoi.begin(), suoi.end(), std::back_inserter(tutti));
  }
  return tutti;
}

}  // namespace fenalto
