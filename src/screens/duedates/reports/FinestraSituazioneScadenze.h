// The window "Situazione scadenze": what is open by party and by month, and how late it is; thin
// over SituazioneScadenze.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraSituazioneScadenze : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraSituazioneScadenze(Finestre& finestre);
  ~FinestraSituazioneScadenze() override;

  void Aggiorna() override;
  bool Indietro() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
