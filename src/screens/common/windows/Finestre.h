// What a function window asks of the main window: opening others, closing, jumps.
#pragma once

#include <QString>
#include <cstdint>

#include "core/session/Ambiente.h"

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
  /// Opens a function as its menu entry does: right, exclusive rule, tab. Brings it to the front
  /// when it is open already. Null when it was refused or isn't built.
  virtual FinestraFunzione* ApriFunzione(const QString& finestra, int scheda = -1) = 0;
  /// Whether a function is built and its menu entry enabled.
  [[nodiscard]] virtual bool FunzioneDisponibile(const QString& finestra) const = 0;
  /// The jump from a code field to its archive with that record open.
  virtual void ApreFormDaEvLibero(const QString& tabella, const QString& codice) = 0;
  /// The jump from a report to a registration, after its question.
  virtual void VediRegistrazione(std::int64_t numero, int anno) = 0;
  /// The question before closing or replacing a window: true when a record in it is still being
  /// edited and the closing must be refused.
  virtual bool ControlloUscita(FinestraFunzione& finestra) = 0;
  /// Housekeeping that a window calls last when it closes.
  virtual void ChiudiFinestra(FinestraFunzione& finestra) = 0;
};

}  // namespace fenalto::screens
