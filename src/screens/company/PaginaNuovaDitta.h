// "Creazione Nuova ditta": name, first year, what the new company starts from.
#pragma once

#include <memory>

#include "screens/company/PaginaDitta.h"

namespace fenalto::screens {

class PaginaNuovaDitta : public PaginaDitta {
  Q_OBJECT

 public:
  explicit PaginaNuovaDitta(Finestre& finestre);
  ~PaginaNuovaDitta() override;

  [[nodiscard]] QString Titolo() const override { return tr("Creazione Nuova ditta"); }
  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  [[nodiscard]] const char* PulsanteConferma() const override { return "CommandNuovaDitta"; }

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
