// What the use cases of reports share: a choice that can't be shown is refused before anything is
// asked or read, and its field is known to whoever chose.
#pragma once

#include <optional>
#include <string>

#include "core/session/Ambiente.h"
#include "core/session/Rifiuto.h"

namespace fenalto::reports {

class SceltaRifiutata {
 public:
  /// The field that the last refusal was about; empty when there was none.
  [[nodiscard]] const std::string& CampoRifiutato() const { return campo_; }

 protected:
  ~SceltaRifiutata() = default;
  /// Tells a refusal and keeps its field; false when there is none.
  bool Rifiuta(Ambiente& ambiente, const std::optional<Rifiuto>& rifiuto) {
    campo_ = rifiuto ? rifiuto->campo : std::string();
    if (rifiuto) ambiente.Dialogo().Messaggio(rifiuto->messaggio, Icona::Avviso);
    return rifiuto.has_value();
  }

 private:
  std::string campo_;
};

}  // namespace fenalto::reports
