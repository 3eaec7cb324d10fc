// The page of the three runs that close a year; thin over Chiusure.
#pragma once

#include "ledger/closing/Chiusure.h"
#include "screens/ledger/closing/PaginaDiForma.h"

namespace fenalto::screens {

class PaginaGiri : public PaginaDiForma {
  Q_OBJECT

 public:
  explicit PaginaGiri(Finestre& finestre);

 protected:
  void Lasciato(const std::string& campo) override { chiusure_->CampoLasciato(campo); }

 private:
  explicit PaginaGiri(Finestre& finestre, std::unique_ptr<ledger::Chiusure> chiusure);
  std::unique_ptr<ledger::Chiusure> chiusure_;
};

}  // namespace fenalto::screens
