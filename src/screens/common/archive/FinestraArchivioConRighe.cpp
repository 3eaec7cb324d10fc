#include "screens/common/archive/FinestraArchivioConRighe.h"

#include <QTabWidget>
#include <utility>

namespace fenalto::screens {

void FinestraArchivioConRighe::TogliRighe() {
  hide();
  delete righe_;
  righe_ = nullptr;
}

RigheDelRecord* FinestraArchivioConRighe::Crea(DescrizioneRighe righe) {
  righe_ = new RigheDelRecord(std::move(righe), Gestore());
  return righe_;
}

void FinestraArchivioConRighe::MostraRecord() {
  FinestraArchivio::MostraRecord();
  righe_->SolaLettura(Archivio().SolaLettura());
  righe_->Mostra();
}

void FinestraArchivioConRighe::GiraAlleRighe() {
  auto& schede = SchedeRecord();
  for (int i = 0; i < schede.count(); ++i) {
    if (schede.widget(i) == righe_ || schede.widget(i)->isAncestorOf(righe_)) {
      schede.setCurrentIndex(i);
    }
  }
}

bool FinestraArchivioConRighe::RaccogliAltro() {
  if (righe_->ConfermaAperta()) return true;
  GiraAlleRighe();
  return false;
}

void FinestraArchivioConRighe::DopoUltimoCampo() {
  if (!righe_->isVisible() && !righe_->Attese()) return FinestraArchivio::DopoUltimoCampo();
  GiraAlleRighe();
  righe_->Comincia();
}

bool FinestraArchivioConRighe::AltroModificato() const {
  return righe_->Modificate();
}

void FinestraArchivioConRighe::Abbandona() {
  // The base does nothing when no record is open; rows belong to one.
  FinestraArchivio::Abbandona();
  righe_->Chiudi();
}

bool FinestraArchivioConRighe::Indietro() {
  return righe_->Annulla() || FinestraArchivio::Indietro();
}

}  // namespace fenalto::screens
