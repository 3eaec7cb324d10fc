// The window `Utility`: companies made, changed, kept in order. Each of its pages stands by itself
// (PaginaDitta.h) and serves one menu entry.
#pragma once

#include <vector>

#include "screens/common/windows/FinestraFunzione.h"

class QTabWidget;

namespace fenalto::screens {

class PaginaDitta;

class FinestraUtility : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraUtility(Finestre& finestre);

  [[nodiscard]] QString NomePerGuida() const override;
  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  void Aggiorna() override;
  void ApriScheda(int scheda) override;

 protected:
  bool PremiConferma() override;

 private:
  [[nodiscard]] PaginaDitta* InVista() const;
  void MostraPagina();

  QTabWidget* schede_;
  std::vector<PaginaDitta*> pagine_;
};

}  // namespace fenalto::screens
