// Blank pages with heading and number, to be stamped before the registers are printed on them.
#pragma once

#include <string>

#include "core/reports/Uscita.h"
#include "core/session/Ambiente.h"

namespace fenalto::admin {

struct SceltaPagine {
  std::string intestazione;
  int annoPag = 0;
  int daPag = 1;
  int aaPag = 0;
  bool stGrafico = false;
  double xTar = 0;
};

class PagineNumerate {
 public:
  /// What the field of the heading says while it is empty.
  static constexpr const char* kInvito = "digitare qui l'intestazione (p.es. REGISTRO IVA VENDITE)";

  PagineNumerate(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), uscite_(uscite) {}

  [[nodiscard]] SceltaPagine Proposta() const;
  /// False when it was refused (told), cancelled or stopped. (`ConfermaStampa`)
  bool Stampa(const SceltaPagine& scelta);
  /// The field that was refused, empty for none.
  [[nodiscard]] const std::string& CampoRifiutato() const { return campoRifiutato_; }

 private:
  [[nodiscard]] std::string Rifiuto(const SceltaPagine& scelta);
  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
  std::string campoRifiutato_;
};

}  // namespace fenalto::admin
