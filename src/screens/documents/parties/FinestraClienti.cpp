#include "screens/documents/parties/FinestraClienti.h"

#include <QVBoxLayout>

#include "documents/parties/ArchiviParti.h"
#include "screens/common/fields/Legatura.h"
#include "screens/documents/parties/RigheDestinazioni.h"

namespace fenalto::screens {

FinestraClienti::FinestraClienti(Finestre& finestre)
    : FinestraClienti(std::make_shared<documents::DestinazioniCliente>(), finestre) {}

FinestraClienti::FinestraClienti(std::shared_ptr<documents::DestinazioniCliente> destinazioni,
                                 Finestre& finestre)
    : FinestraArchivioConRighe(documents::ArchivioClienti(destinazioni), finestre),
      destinazioni_(std::move(destinazioni)) {
  auto righe = RigheDestinazioni(*destinazioni_, Archivio().Contesto(),
                                 [this] { return Legami().Raccogli(); });
  // The predefined destination gives its place to an open row.
  righe.cambiata = [this] { MostraSenzaRighe(); };
  Pagina(documents::kPaginaDestinazioni).addWidget(Crea(std::move(righe)));
}

FinestraClienti::~FinestraClienti() {
  TogliRighe();
}

}  // namespace fenalto::screens
