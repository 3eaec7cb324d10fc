// The toolkit's application, with the one place where an unexpected error of a user's action is
// caught and told.
#pragma once

#include <QApplication>

#include "core/session/Porte.h"

namespace fenalto::screens {

class ApplicazioneQt : public QApplication {
 public:
  ApplicazioneQt(int& argc, char** argv) : QApplication(argc, argv) {}
  /// Where errors are told; null before the session stands.
  void Dialogo(Dialoghi* dialoghi) { dialoghi_ = dialoghi; }

  bool notify(QObject* ricevente, QEvent* evento) override;

 private:
  Dialoghi* dialoghi_ = nullptr;
};

}  // namespace fenalto::screens
