// The window "Inserimento Movimenti contabili non Iva - Primanota": thin over Primanota.
#pragma once

#include <memory>

#include "ledger/Primanota.h"
#include "screens/common/FinestraFunzione.h"

namespace fenalto {

class FinestraMovimenti : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraMovimenti(Finestre& finestre);
  ~FinestraMovimenti() override;

  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  void ApriCodice(const QString& codice) override;
  bool Indietro() override;
  void Aggiorna() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto
