// A new accounting year.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"

namespace fenalto::ledger {

class NuovoEsercizio {
 public:
  explicit NuovoEsercizio(Ambiente& ambiente);

  /// AnnoNuovo, xEuro.
  [[nodiscard]] Scheda& Dati() { return dati_; }
  [[nodiscard]] const std::string& CampoRifiutato() const { return campoRifiutato_; }
  /// Makes the year and says so. True when the program is to end.
  bool ConfermaNuovoAnno();

 private:
  bool Rifiuta(const std::string& testo);
  void Scrivi(int anno, bool euro);
  /// What is told once the year is there.
  std::vector<std::string> DaDire(int anno, bool euro);

  Ambiente& ambiente_;
  Scheda dati_;
  std::string campoRifiutato_;
};

}  // namespace fenalto::ledger
