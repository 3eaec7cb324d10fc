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

  /// Shows the class of the reference; on page 1 all its open due dates, from the first that isn't
  /// overdue.
  void ApriRecord(const Rinvio& rinvio) override;
  void Aggiorna() override;
  bool Indietro() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
