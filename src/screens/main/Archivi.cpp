#include "screens/main/Archivi.h"

#include <iterator>

#include "assets/CategorieCespiti.h"
#include "documents/parties/ArchiviParti.h"
#include "documents/types/ArchiviDocumenti.h"
#include "duedates/codes/ArchiviScadenze.h"
#include "ledger/accounts/ArchiviContabili.h"
#include "ledger/accounts/PianoDeiConti.h"
#include "vat/codes/ArchiviIva.h"
#include "warehouse/products/ArchiviMagazzino.h"

namespace fenalto::screens {

std::vector<archives::DescrizioneArchivio> TuttiGliArchivi() {
  std::vector<archives::DescrizioneArchivio> tutti;
  for (auto stanza :
       {ledger::ArchiviContabili, ledger::ArchiviPianoDeiConti, vat::ArchiviIva,
        duedates::ArchiviScadenze, documents::ArchiviDocumenti, documents::ArchiviParti,
        warehouse::ArchiviMagazzino, assets::ArchiviCespiti}) {
    auto suoi = stanza();
    std::move(suoi.begin(), suoi.end(), std::back_inserter(tutti));
  }
  return tutti;
}

}  // namespace fenalto::screens
