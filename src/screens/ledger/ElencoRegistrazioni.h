// The list of the year's registrations with the line that narrows it.
//
// By number and date an index answers and rows come in pages as the list is scrolled. By account
// the registrations are gone through a stretch at a time between one event and the next, so that
// typing never waits, however many they are.
#pragma once

#include "ledger/registrations/LettoreArticoli.h"
#include "screens/common/lists/ElencoCercato.h"

namespace fenalto::screens {

class ElencoRegistrazioni : public ElencoCercato {
  Q_OBJECT

 public:
  explicit ElencoRegistrazioni(Ambiente& ambiente, QWidget* genitore = nullptr);
  void Ricarica() override;
  /// "15/03/2024   100.010  Cassa contanti  →  700.010  Vendite"; empty when there is none.
  [[nodiscard]] QString Descrizione(std::int64_t numero);

 private:
  void Prosegui();
  void DiTrovate();

  ledger::LettoreArticoli lettore_;
  ledger::RicercaArticoli ricerca_;
  std::int64_t sotto_ = 0;  ///< where the search goes on: numbers below this one
};

}  // namespace fenalto::screens
