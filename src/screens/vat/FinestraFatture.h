// The window "Inserimento Fatture e registrazioni IVA in contabilità": thin over Fatture.
#pragma once

#include <memory>

#include "screens/common/FinestraFunzione.h"

namespace fenalto {

class FinestraFatture : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraFatture(Finestre& finestre);
  ~FinestraFatture() override;

  /// The window, or null after telling why no VAT document can be registered in the company.
  static FinestraFatture* Crea(Finestre& finestre);

  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  void ApriCodice(const QString& codice) override;
  bool Indietro() override;
  void Aggiorna() override;

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto
