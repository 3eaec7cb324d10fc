// "Modifica impostazioni Ditta": the company's data and choices.
#pragma once

#include <memory>

#include "screens/company/PaginaDitta.h"

namespace fenalto::screens {

class PaginaVariazione : public PaginaDitta {
  Q_OBJECT

 public:
  explicit PaginaVariazione(Finestre& finestre);
  ~PaginaVariazione() override;

  [[nodiscard]] QString Titolo() const override { return tr("Modifica impostazioni Ditta"); }
  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  void Aggiorna() override;
  [[nodiscard]] const char* PulsanteConferma() const override { return "Command1VariazioneDitta"; }

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
