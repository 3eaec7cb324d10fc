// The page of what is done for a year and some categories at once: quotas, their reversal, their
// registration, register and cards.
#pragma once

#include <QWidget>
#include <memory>

#include "ledger/registrations/Primanota.h"
#include "screens/common/windows/Finestre.h"

namespace fenalto::screens {

class PaginaAmmortamenti : public QWidget {
  Q_OBJECT

 public:
  explicit PaginaAmmortamenti(Finestre& finestre, QWidget* genitore = nullptr);
  ~PaginaAmmortamenti() override;

 signals:
  /// Rows are about to be written: what is open has to be left. `libera` tells whether it was.
  void LiberaChiesto(bool& libera);
  /// Assets were changed.
  void Cambiati();
  void CespiteScelto(qint64 nCesp);
  void RegistrazioneProposta(const fenalto::ledger::PropostaRegistrazione& proposta);

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
