#include "screens/main/ApplicazioneQt.h"

#include <cstdio>
#include <exception>

namespace fenalto::screens {

bool ApplicazioneQt::notify(QObject* ricevente, QEvent* evento) {
  try {
    return QApplication::notify(ricevente, evento);
  } catch (const std::exception& errore) {
    while (overrideCursor() != nullptr) restoreOverrideCursor();
    std::fprintf(stderr, "fenalto: %s\n", errore.what());
    if (dialoghi_ != nullptr) {
      dialoghi_->Messaggio(
          std::string("L'operazione non è riuscita e non ha scritto niente.\n") + errore.what(),
          Icona::Errore);
    }
    return true;
  }
}

}  // namespace fenalto::screens
