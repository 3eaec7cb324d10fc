// The windows "Stampa anagrafica e contabile" of customers and of suppliers: thin over ElencoParti.
#pragma once

#include <string>

#include "documents/parties/ElencoParti.h"
#include "screens/common/reports/FinestraRapporto.h"

namespace fenalto::screens {

class FinestraElencoParti : public FinestraRapporto {
  Q_OBJECT

 public:
  /// `cfp` is "C" or "F".
  FinestraElencoParti(const std::string& cfp, Finestre& finestre);

 protected:
  void Stampa() override;
  reports::Foglio Foglio() override;
  [[nodiscard]] std::string NomeFoglio() const override;

 private:
  [[nodiscard]] documents::SceltaElencoParti Digitata() const;

  std::string cfp_;
  documents::ElencoParti elenco_;
};

}  // namespace fenalto::screens
