// The printed check of balances against open due dates: a line for each party that differs.
#pragma once

#include "core/reports/SceltaRifiutata.h"
#include "core/reports/Uscita.h"
#include "duedates/reports/ConfrontaSaldi.h"

namespace fenalto::duedates {

class TestSaldi : public reports::SceltaRifiutata {
 public:
  TestSaldi(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), uscite_(uscite) {}

  /// "Controllo scadenze in vita con saldi contabili anno 2024"
  [[nodiscard]] std::string Titolo() const;
  /// False when the choice is wrong (told), or it was cancelled. Where nothing differs the page
  /// says so.
  bool Stampa(const SceltaConfronto& scelta);

 private:
  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
};

}  // namespace fenalto::duedates
