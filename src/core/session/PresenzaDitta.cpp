#include "core/session/PresenzaDitta.h"

#include <exception>
#include <utility>

namespace fenalto {

PresenzaEsclusiva::PresenzaEsclusiva(Ambiente& ambiente)
    : ambiente_(&ambiente),
      presenza_(ambiente.PresenzaQui()),
      percorsi_(ambiente.Basi().Percorsi()),
      ditta_(ambiente.Ditta()),
      anno_(ambiente.Anno()),
      utente_(ambiente.UtenteCorrente()) {}

PresenzaEsclusiva::~PresenzaEsclusiva() {
  if (!ambiente_) return;
  try {
    if (!ambiente_->DittaAperta()) {
      (void)Riapri();
      return;
    }
  } catch (const std::exception& errore) {
    // What keeps it closed is told by the next thing that asks for it.
  }
  if (presenza_) presenza_->ConAltri();
}

void PresenzaEsclusiva::Chiudi() {
  ambiente_->ChiudiDitta();
}

Esito<bool> PresenzaEsclusiva::Riapri(const std::string& ditta) {
  if (!ditta.empty()) ditta_ = ditta;
  // Shared before the session takes its own: nobody gets it alone in between.
  if (presenza_) presenza_->ConAltri();
  auto aperta = ambiente_->RiapriDitta(ditta_, anno_, utente_);
  if (aperta) presenza_.reset();  // the session has its own
  return aperta;
}

Esito<PresenzaEsclusiva> PrendiDitta(Ambiente& ambiente) {
  PresenzaEsclusiva presa(ambiente);
  if (presa.presenza_) {
    if (auto sola = presa.presenza_->Sola(); !sola) return sola.Errore();
  }
  return Esito<PresenzaEsclusiva>(std::move(presa));
}

}  // namespace fenalto
