#include "screens/documents/parties/FinestraClienti.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "documents/parties/ArchiviParti.h"
#include "screens/common/fields/Legatura.h"
#include "screens/documents/parties/RiquadroDestinazioni.h"

namespace fenalto::screens {

FinestraClienti::FinestraClienti(Finestre& finestre)
    : FinestraClienti(std::make_shared<documents::DestinazioniCliente>(), finestre) {}

FinestraClienti::FinestraClienti(std::shared_ptr<documents::DestinazioniCliente> destinazioni,
                                 Finestre& finestre)
    : FinestraArchivio(documents::ArchivioClienti(destinazioni), finestre),
      destinazioni_(std::move(destinazioni)),
      righe_(new RiquadroDestinazioni(
          *destinazioni_,
          {.cliente = [this]() -> archives::ContestoArchivio& { return Archivio().Contesto(); },
           .raccogli = [this] { return Legami().Raccogli(); },
           // The predefined destination gives its place to an open row.
           .rigaCambiata = [this] { FinestraArchivio::MostraRecord(); }},
          finestre)) {
  Pagina(documents::kPaginaDestinazioni).addWidget(righe_);
}

FinestraClienti::~FinestraClienti() {
  // A field that is destroyed with the focus would read itself into a row that is gone.
  hide();
  delete righe_;
}

void FinestraClienti::MostraRecord() {
  FinestraArchivio::MostraRecord();
  righe_->SolaLettura(Archivio().SolaLettura());
  righe_->Mostra();
}

bool FinestraClienti::RaccogliAltro() {
  if (righe_->ConfermaAperta()) return true;
  for (int i = 0; i < SchedeRecord().count(); ++i) {
    if (SchedeRecord().widget(i)->isAncestorOf(righe_)) SchedeRecord().setCurrentIndex(i);
  }
  return false;
}

bool FinestraClienti::AltroModificato() const {
  return destinazioni_->Modificate() || righe_->Modificata();
}

void FinestraClienti::Abbandona() {
  // The base does nothing when no record is open; rows belong to one.
  FinestraArchivio::Abbandona();
  destinazioni_->Leggi(Archivio().Contesto().ambiente, "");
  righe_->Mostra();
}

bool FinestraClienti::Indietro() {
  return righe_->Annulla() || FinestraArchivio::Indietro();
}

}  // namespace fenalto::screens
