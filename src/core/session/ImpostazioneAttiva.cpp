#include "core/session/ImpostazioneAttiva.h"

#include <string>

#include "core/values/Importo.h"
#include "core/values/Testo.h"

namespace fenalto {

bool ImpostazioneAttiva(Ambiente& ambiente, std::string_view chiave, bool seVuota) {
  const std::string letta = ambiente.Config(chiave);
  const std::string_view testo = Rifila(letta);
  if (testo.empty()) return seVuota;
  if (UgualeTesto(testo, "si") || UgualeTesto(testo, "true") || UgualeTesto(testo, "vero")) {
    return true;
  }
  const auto numero = Importo::DaTesto(testo);
  return numero && !numero->Zero();
}

}  // namespace fenalto
