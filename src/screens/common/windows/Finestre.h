// What a function window asks of the main window: opening others, closing, jumps.
#pragma once

#include <QString>

#include "core/session/Ambiente.h"
#include "core/values/Rinvio.h"

namespace fenalto::reports {
class FabbricaUscite;
}

namespace fenalto::screens {

class FinestraFunzione;

class Finestre {
 public:
  virtual ~Finestre() = default;
  virtual Ambiente& Sessione() = 0;
  /// What makes the outputs of reports (Stampa).
  virtual reports::FabbricaUscite& Uscite() = 0;
  /// Goes where a reference leads (screens/main/FinestraPrincipaleRinvii.cpp): the window, with the
  /// record open in it. Null when it was refused, given up or isn't built. The calling window may
  /// be closed by it.
  virtual FinestraFunzione* Segui(const Rinvio& rinvio) = 0;
  /// Whether a function is built and its menu entry enabled.
  [[nodiscard]] virtual bool FunzioneDisponibile(const QString& finestra) const = 0;
  /// The question before closing or replacing a window: true when a record in it is still being
  /// edited and the closing must be refused.
  virtual bool ControlloUscita(FinestraFunzione& finestra) = 0;
  virtual void PortaAvanti(FinestraFunzione& finestra) = 0;
  /// Housekeeping that a window calls last when it closes.
  virtual void ChiudiFinestra(FinestraFunzione& finestra) = 0;
  /// The program ends as soon as the caller has returned, without questions: a company was made or
  /// deleted, a year opened.
  virtual void ChiediFine() = 0;
  /// The company's data were replaced under the session: years and what hangs on them are shown
  /// anew.
  virtual void SessioneCambiata() = 0;
};

}  // namespace fenalto::screens
