// "Compattamento database ed utilità": compacting, repairs, password, pages for bound registers.
#pragma once

#include <memory>

#include "screens/company/PaginaDitta.h"

namespace fenalto::screens {

class PaginaUtilita : public PaginaDitta {
  Q_OBJECT

 public:
  explicit PaginaUtilita(Finestre& finestre);
  ~PaginaUtilita() override;

  [[nodiscard]] QString Titolo() const override { return tr("Compattamento database ed utilità"); }
  void Aggiorna() override;
  [[nodiscard]] const char* PulsanteConferma() const override { return "ConfermaStampa"; }

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
